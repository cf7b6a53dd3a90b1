// Command-line tool: writes small pictures of every kind the picture path reads into a folder (the seeds
// of the picture fuzzer): baseline, progressive, greyscale and EXIF-turned JPEG, 24-bit and palette BMP, GIF.
#include "exifwriter.h"
#include "gifwriter.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QImageWriter>
#include <QPainter>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QDir dir(app.arguments().value(1));
    QImage img(48, 36, QImage::Format_RGB32);
    QLinearGradient sky(0, 0, 48, 36);
    sky.setColorAt(0, Qt::darkBlue);
    sky.setColorAt(1, Qt::yellow);
    QPainter(&img).fillRect(img.rect(), sky);
    const auto write = [&](const QString &name, const QImage &pic, bool progressive) {
        QImageWriter w(dir.filePath(name));
        w.setProgressiveScanWrite(progressive);
        return w.write(pic);
    };
    QByteArray jpeg;
    QBuffer buf(&jpeg);
    QFile turned(dir.filePath(QStringLiteral("turned.jpg")));
    const bool ok = dir.mkpath(QStringLiteral(".")) && write(QStringLiteral("a.jpg"), img, false)
        && write(QStringLiteral("p.jpg"), img, true)
        && write(QStringLiteral("g.jpg"), img.convertToFormat(QImage::Format_Grayscale8), false)
        && write(QStringLiteral("a.bmp"), img, false)
        && write(QStringLiteral("i.bmp"), img.convertToFormat(QImage::Format_Indexed8), false)
        && gifwriter::write(img, dir.filePath(QStringLiteral("a.gif"))) && img.save(&buf, "jpg")
        && turned.open(QIODevice::WriteOnly) && turned.write(exifwriter::withExif(jpeg, 6, {})) > 0;
    return ok ? 0 : 1;
}
