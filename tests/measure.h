// What the tests read back: a file's bytes, and how far a picture on the board or the screen is from the
// picture it shows.
#pragma once

#include <QFile>
#include <QImage>

inline QByteArray bytesOf(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// How far img is from reference smoothly scaled to its size: the mean over the pixels of the summed
// channel differences. A nearest-pixel scale, or a shift by a third of a pixel, gives 10.
inline double difference(const QImage &img, const QImage &reference)
{
    const QImage smooth = reference.scaled(img.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    qint64 sum = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) {
            const QRgb a = img.pixel(x, y), b = smooth.pixel(x, y);
            sum += qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
        }
    return double(sum) / img.width() / img.height();
}
