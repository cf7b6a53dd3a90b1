// Picture decoding with QImageReader: size checks from the header, EXIF orientation, reduced-size
// JPEG decoding (libjpeg's DCT scaling) and checks for truncated JPEG and BMP data.
#include "render/picturefile.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QtEndian>

namespace picturefile
{
namespace
{

    bool swapsSides(QImageIOHandler::Transformations t)
    {
        return t & QImageIOHandler::TransformationRotate90;
    }

    // libjpeg fills a truncated file's missing part with grey and calls it a success; a complete JPEG
    // ends its last scan with an end-of-image marker.
    bool jpegIsComplete(const QString &path)
    {
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly))
            return false;
        const qint64 size = f.size();
        uchar *data = f.map(0, size);
        if (!data)
            return true; // cannot tell; the decoder decides
        const QByteArrayView bytes(reinterpret_cast<const char *>(data), size);
        if (size >= 2 && bytes.endsWith("\xFF\xD9"))
            return true;
        // Trailing data after the end marker is allowed; a scan with no end marker after it is not.
        const qsizetype lastScan = bytes.lastIndexOf(QByteArrayView("\xFF\xDA", 2));
        const qsizetype lastEnd = bytes.lastIndexOf(QByteArrayView("\xFF\xD9", 2));
        return lastScan >= 0 && lastEnd > lastScan;
    }

    // Qt shows the missing rows of a cut-off BMP as black and calls it a success; uncompressed rows have a
    // size known from the header.
    bool bmpIsComplete(const QString &path)
    {
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly))
            return false;
        const QByteArray h = f.read(34);
        if (h.size() < 34)
            return false;
        const auto u32 = [&](int at) { return qFromLittleEndian<quint32>(h.constData() + at); };
        const quint32 compression = u32(30);
        // The old small header and compressed rows are left to the decoder.
        if (u32(14) < 40 || (compression != 0 && compression != 3 && compression != 6))
            return true;
        const qint64 width = qAbs(qint64(qint32(u32(18)))), height = qAbs(qint64(qint32(u32(22))));
        const qint64 rowBits = width * qFromLittleEndian<quint16>(h.constData() + 28);
        // The last row's padding may be left out.
        return f.size() >= u32(10) + (rowBits + 31) / 32 * 4 * (height - 1) + (rowBits + 7) / 8;
    }

    QString readerError(const QImageReader &reader, const QString &path)
    {
        const QString name = QFileInfo(path).fileName();
        switch (reader.error()) {
        case QImageReader::FileNotFoundError:
            return QStringLiteral("The picture file %1 cannot be found.").arg(name);
        case QImageReader::DeviceError:
            return QStringLiteral("The picture file %1 cannot be read.").arg(name);
        case QImageReader::UnsupportedFormatError:
            return QStringLiteral("The file %1 is not a picture that can be read.").arg(name);
        default:
            return QStringLiteral("The picture file %1 is damaged and cannot be read.").arg(name);
        }
    }

    void prepare(QImageReader &reader)
    {
        reader.setAutoTransform(true);
        reader.setDecideFormatFromContent(true);
        // Above the pixel check, so that only real pictures reach the allocation.
        QImageReader::setAllocationLimit(1024);
    }

    // Pictures with transparency are shown over white; the board keeps 32-bit RGB.
    QImage toBoardFormat(QImage img)
    {
        if (img.hasAlphaChannel()) {
            QImage out(img.size(), QImage::Format_RGB32);
            out.fill(Qt::white);
            QPainter(&out).drawImage(0, 0, img);
            return out;
        }
        return img.format() == QImage::Format_RGB32 ? img : img.convertToFormat(QImage::Format_RGB32);
    }

} // namespace

Header probe(const QString &path)
{
    const QFileInfo info(path);
    const QString name = info.fileName();
    if (!info.exists() || !info.isFile())
        return { {}, QStringLiteral("The picture file %1 cannot be found.").arg(path) };
    if (info.size() == 0)
        return { {}, QStringLiteral("The picture file %1 is empty.").arg(name) };
    QImageReader reader(path);
    prepare(reader);
    if (!reader.canRead())
        return { {}, readerError(reader, path) };
    QSize size = reader.size();
    if (!size.isValid() || size.isEmpty())
        return { {}, QStringLiteral("The picture file %1 is damaged and cannot be read.").arg(name) };
    if (qint64(size.width()) * size.height() > MaxPixels)
        return { {},
            QStringLiteral("The picture %1 is too large (%2 x %3 pixels); pictures of up to 100 million "
                           "pixels can be opened.")
                .arg(name)
                .arg(size.width())
                .arg(size.height()) };
    if (reader.format() == "jpeg" && !jpegIsComplete(path))
        return { {}, QStringLiteral("The picture file %1 is incomplete and cannot be read.").arg(name) };
    if (reader.format() == "bmp" && !bmpIsComplete(path))
        return { {}, QStringLiteral("The picture file %1 is incomplete and cannot be read.").arg(name) };
    if (swapsSides(reader.transformation()))
        size.transpose();
    return { size, {} };
}

QImage decodeScaled(const QString &path, QSize target, QString *error)
{
    QImageReader reader(path);
    prepare(reader);
    // The scaled size is in the file's own orientation; the reader turns the picture afterwards.
    QSize fileTarget = target;
    if (swapsSides(reader.transformation()))
        fileTarget.transpose();
    // JPEG reaches libjpeg's DCT scaling through this; other formats are scaled smoothly after decoding.
    reader.setScaledSize(fileTarget);
    QImage img = reader.read();
    if (img.isNull()) {
        *error = readerError(reader, path);
        return {};
    }
    if (img.size() != target)
        img = img.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return toBoardFormat(std::move(img));
}

QImage decodeFullThenScale(const QString &path, QSize target, QString *error)
{
    QImageReader reader(path);
    prepare(reader);
    QImage img = reader.read();
    if (img.isNull()) {
        *error = readerError(reader, path);
        return {};
    }
    return toBoardFormat(img.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

} // namespace picturefile
