// Library thumbnails: a picture file read straight into a small stretched picture, never at its full
// size, on every core when several are wanted at once; kept in the desktop's thumbnail cache between
// openings.
#pragma once

#include "pictures/thumbcache.h"

#include <QImage>
#include <QString>
#include <QStringList>
#include <vector>

namespace thumbnail
{

struct Thumb {
    QImage image; // Format_RGB32, the box times the ratio; the unreadable mark when error is set
    QString error; // why the file cannot be shown; empty when it shows
    // What the cache is to keep of a thumbnail made here rather than read from it: the picture as it
    // was read, and the picture reduced (null if nothing) or, when it could not be decoded, failed.
    thumbcache::Original source;
    QSize shown;
    QImage made;
    bool failed = false;
};

// The picture of one file stretched to box, at ratio device pixels to a pixel: a current thumbnail
// from the desktop's cache, else the JPEG's embedded EXIF thumbnail when it covers the box and has the
// picture's proportions, else a reduced-size decode of the picture itself.
Thumb decode(const QString &path, QSize box, int ratio = 1);
// The same for several files, shared among the cores; results in the order of paths.
std::vector<Thumb> decodeAll(const QStringList &paths, QSize box, int ratio = 1);
// Hands the thumbnails made by decode to the cache's writer, for the next opening and other programs.
void keep(const std::vector<Thumb> &thumbs);
// What a thumbnail shows for a file that cannot be shown: a red cross on a pale card.
QImage unreadableMark(QSize box, int ratio = 1);

} // namespace thumbnail
