// Library thumbnails: a picture file read straight into a small stretched picture, never at its full
// size, on every core when several are wanted at once.
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <vector>

namespace thumbnail
{

struct Thumb {
    QImage image; // Format_RGB32, the size asked for; the unreadable mark when error is set
    QString error; // why the file cannot be shown; empty when it shows
};

// The picture of one file stretched to size: the JPEG's embedded EXIF thumbnail when it covers the
// size and has the picture's proportions, else a reduced-size decode of the picture itself.
Thumb decode(const QString &path, QSize size);
// The same for several files, shared among the cores; results in the order of paths.
std::vector<Thumb> decodeAll(const QStringList &paths, QSize size);
// What a thumbnail shows for a file that cannot be shown: a red cross on a pale card.
QImage unreadableMark(QSize size);

} // namespace thumbnail
