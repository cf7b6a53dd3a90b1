// The desktop's shared thumbnail cache, as file managers and picture viewers keep it: a PNG per picture
// under $XDG_CACHE_HOME/thumbnails (or ~/.cache/thumbnails) in a folder for its size, named by the MD5
// of the picture's file URI and valid while its recorded time (in whole seconds) and size are the picture's.
// Nothing here ever reports a problem: a cache that cannot be read or written is simply not used.
#pragma once

#include <QImage>
#include <QString>
#include <optional>

namespace thumbcache
{

// The picture a cache entry stands for, as it was when its thumbnail was read or made.
struct Original {
    QString path;
    QByteArray uri; // file:///... percent-encoded
    QString name; // the entry's file name: the URI's MD5 in hex, then .png
    qint64 mtime = -1; // seconds since 1970; -1 when the file cannot be looked at (nothing is cached)
    qint64 size = 0; // bytes
};

// The URI of a local file as the desktop's thumbnailers spell it: file:// and the absolute path, with
// every byte but letters, digits and -._~!$&'()*+,/:=@ percent-encoded.
QByteArray fileUri(const QString &path);
// The entry name for a URI: its MD5 in hex and .png.
QString entryName(const QByteArray &uri);
// The picture at path as it is now.
Original original(const QString &path);

// $XDG_CACHE_HOME/thumbnails, or ~/.cache/thumbnails when it is not set.
QString folder();

// The cache's thumbnail for a picture of pictureSize (as shown) to be drawn over box device pixels:
// from the smallest size folder whose thumbnails cover the box, else the next larger one; a valid
// one of the picture's shape that does not cover the box (a picture smaller than the box, or far
// wider or taller than it) is taken when no other is. Null when there is none that is current and sound.
QImage find(const Original &picture, QSize box, QSize pictureSize);
// An entry's bytes read as the cache reads its files: the image when they are a sound PNG of at most
// side pixels a side whose keys are the picture's, else null.
QImage readEntry(const QByteArray &png, const Original &picture, int side);
// The problem recorded by this game for a picture it could not read, while the picture is unchanged.
std::optional<QString> failure(const Original &picture);

// The standard thumbnail side for box: the smallest of 128, 256, 512 and 1024 that holds it.
int sideFor(QSize box);
// A picture of this size reduced to fit a square of side, its shape kept; never enlarged.
QSize fitted(QSize picture, int side);
// Writes reduced (the picture of pictureSize, reduced) into the size folders from normal up to the
// one of side, each one that reduced covers; on a thread of its own, after the caller has gone on.
void storeLater(const Original &picture, const QImage &reduced, QSize pictureSize, int side);
// Notes the picture under fail/varno-VERSION with the problem, so it is not read again until it changes.
void storeFailureLater(const Original &picture, const QString &problem);
// Returns once every write asked for so far has ended.
void waitForWrites();

// On unless turned off; the benchmark measures the library without the cache too.
void setEnabled(bool on);
bool enabled();

} // namespace thumbcache
