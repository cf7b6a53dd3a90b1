// Picture decoding with QImageReader: size checks from the header, EXIF orientation, reduced-size
// JPEG decoding (libjpeg's DCT scaling) and checks for truncated JPEG and BMP data.
#include "render/picturefile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QtEndian>

namespace picturefile
{
namespace
{
    // The texts a player may be shown, translated in the context "picturefile".
    struct Texts {
        Q_DECLARE_TR_FUNCTIONS(picturefile)
    };

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

    // Qt shows the missing part of a cut-off GIF as empty and calls it a success; the blocks of a whole
    // file run on to its trailer.
    bool gifIsComplete(const QString &path)
    {
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly))
            return false;
        const qint64 size = f.size();
        const uchar *b = f.map(0, size);
        if (!b)
            return true; // cannot tell; the decoder decides
        const auto colourTable = [](uchar flags) { return flags & 0x80 ? 3 * (2 << (flags & 7)) : 0; };
        qint64 at = size < 13 ? size : 13 + colourTable(b[10]);
        const auto skipSubBlocks = [&] {
            while (at < size && b[at] != 0)
                at += 1 + b[at];
            ++at;
        };
        while (at < size) {
            if (b[at] == 0x3B) // the trailer
                return true;
            if (b[at] == 0x21) { // an extension: its label, then its data
                at += 2;
            } else if (b[at] == 0x2C && at + 10 < size) { // a frame: its place, colours and code size
                at += 10 + colourTable(b[at + 9]) + 1;
            } else {
                return false;
            }
            skipSubBlocks();
        }
        return false;
    }

    // Whether `rows` rows of `stride` bytes, the last cut to `lastRow`, fit in fileSize after offset. Counted
    // by division: the header's sizes multiplied could pass any integer, and a header is anybody's.
    bool rowsFit(qint64 fileSize, qint64 offset, qint64 stride, qint64 lastRow, qint64 rows)
    {
        const qint64 room = fileSize - offset - lastRow;
        if (room < 0)
            return false;
        return rows <= 1 || stride == 0 || rows - 1 <= room / stride;
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
        const qint64 rowBits = width * qFromLittleEndian<quint16>(h.constData() + 28); // below 2^47
        // The last row's padding may be left out.
        return rowsFit(f.size(), u32(10), (rowBits + 31) / 32 * 4, (rowBits + 7) / 8, height);
    }

    // An uncompressed 24-bit (or plain 32-bit) BMP much larger than the board is area-averaged into the
    // board size while its rows are read, so it is never held whole at 32 bits per pixel. A null image
    // means this file is left to the decoder.
    QImage bmpReduced(const QString &path, QSize target)
    {
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly) || f.size() < 54)
            return {};
        const qint64 fileSize = f.size();
        const uchar *data = f.map(0, fileSize);
        if (!data)
            return {};
        const auto u16 = [&](int at) { return qFromLittleEndian<quint16>(data + at); };
        const auto u32 = [&](int at) { return qFromLittleEndian<quint32>(data + at); };
        const qint32 rawHeight = qint32(u32(22));
        const qint64 w = qint32(u32(18)), h = qAbs(qint64(rawHeight)), offset = u32(10);
        const int bpp = u16(28) / 8; // bytes per pixel
        const qint64 tw = target.width(), th = target.height();
        if (data[0] != 'B' || data[1] != 'M' || u32(14) < 40 || u16(26) != 1 || u32(30) != 0
            || (bpp != 3 && (bpp != 4 || u32(14) != 40)) || tw < 1 || th < 1 || w < 2 * tw || h < 2 * th)
            return {};
        const qint64 stride = (w * bpp + 3) / 4 * 4;
        if (!rowsFit(fileSize, offset, stride, w * bpp, h))
            return {};

        // Measured in 1/tw of a file pixel, file pixel x spans [x * tw, (x + 1) * tw) and board column tx
        // spans [tx * w, (tx + 1) * w): the weight of a pixel in a column is their overlap. Rows likewise.
        struct Span {
            qint64 first, last; // the pixels the column touches; those between weigh tw
            quint64 firstWeight, lastWeight;
        };
        std::vector<Span> cols(tw);
        for (qint64 tx = 0; tx < tw; ++tx) {
            const qint64 start = tx * w, end = (tx + 1) * w, first = start / tw, last = (end - 1) / tw;
            cols[tx] = { first, last, quint64((first + 1) * tw - start), quint64(end - last * tw) };
        }
        QImage out(target, QImage::Format_RGB32);
        const quint64 area = quint64(w) * quint64(h);
        std::vector<quint64> rowSum(3 * tw), acc(3 * tw), next(3 * tw);
        const auto emitRow = [&](qint64 ty) {
            auto *line = reinterpret_cast<QRgb *>(out.scanLine(int(ty)));
            for (qint64 tx = 0; tx < tw; ++tx)
                line[tx] = qRgb(int((acc[3 * tx + 2] + area / 2) / area),
                    int((acc[3 * tx + 1] + area / 2) / area), int((acc[3 * tx] + area / 2) / area));
        };
        qint64 current = 0;
        for (qint64 y = 0; y < h; ++y) {
            const qint64 ty = y * th / h;
            if (ty > current) {
                emitRow(current);
                std::swap(acc, next);
                std::fill(next.begin(), next.end(), 0);
                current = ty;
            }
            const uchar *row
                = data + offset + (rawHeight > 0 ? h - 1 - y : y) * stride; // bottom-up when positive
            for (qint64 tx = 0; tx < tw; ++tx) {
                const Span &c = cols[tx];
                quint64 b = 0, g = 0, r = 0;
                for (const uchar *px = row + (c.first + 1) * bpp, *end = row + c.last * bpp; px < end;
                     px += bpp) {
                    b += px[0];
                    g += px[1];
                    r += px[2];
                }
                const uchar *first = row + c.first * bpp, *last = row + c.last * bpp;
                rowSum[3 * tx] = b * tw + first[0] * c.firstWeight + last[0] * c.lastWeight;
                rowSum[3 * tx + 1] = g * tw + first[1] * c.firstWeight + last[1] * c.lastWeight;
                rowSum[3 * tx + 2] = r * tw + first[2] * c.firstWeight + last[2] * c.lastWeight;
            }
            // The row's share of board row ty, and the rest of it in the next board row.
            const quint64 here = quint64(std::min((y + 1) * th, (ty + 1) * h) - y * th), there = th - here;
            for (qint64 i = 0; i < 3 * tw; ++i) {
                acc[i] += here * rowSum[i];
                next[i] += there * rowSum[i];
            }
        }
        emitRow(current);
        return out;
    }

    QString readerError(const QImageReader &reader, const QString &path)
    {
        const QString name = QFileInfo(path).fileName();
        switch (reader.error()) {
        case QImageReader::FileNotFoundError:
            return Texts::tr("The picture file %1 cannot be found.").arg(name);
        case QImageReader::DeviceError:
            return Texts::tr("The picture file %1 cannot be read.").arg(name);
        case QImageReader::UnsupportedFormatError:
            return Texts::tr("The file %1 is not a picture that can be read.").arg(name);
        default:
            return Texts::tr("The picture file %1 is damaged and cannot be read.").arg(name);
        }
    }

    void prepare(QImageReader &reader)
    {
        reader.setAutoTransform(true);
        reader.setDecideFormatFromContent(true);
        // Above the pixel check, so that only real pictures reach the allocation. Set once: library
        // thumbnails are read on several threads at a time.
        static const bool limited = [] {
            QImageReader::setAllocationLimit(1024);
            return true;
        }();
        Q_UNUSED(limited);
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
    if (info.isDir())
        return { {}, Texts::tr("%1 is a folder, not a picture file.").arg(path) };
    if (!info.exists() || !info.isFile())
        return { {}, Texts::tr("The picture file %1 cannot be found.").arg(path) };
    if (info.size() == 0)
        return { {}, Texts::tr("The picture file %1 is empty.").arg(name) };
    QImageReader reader(path);
    prepare(reader);
    if (!reader.canRead())
        return { {}, readerError(reader, path) };
    QSize size = reader.size();
    if (reader.format() == "bmp") // Qt gives a top-down BMP (rows stored from the top) a negative height
        size.setHeight(qAbs(size.height()));
    if (!size.isValid() || size.isEmpty())
        return { {}, Texts::tr("The picture file %1 is damaged and cannot be read.").arg(name) };
    if (qint64(size.width()) * size.height() > MaxPixels)
        return { {},
            Texts::tr("The picture %1 is too large (%2 x %3 pixels); pictures of up to 100 million "
                      "pixels can be opened.")
                .arg(name)
                .arg(size.width())
                .arg(size.height()) };
    if (reader.format() == "jpeg" && !jpegIsComplete(path))
        return { {}, Texts::tr("The picture file %1 is incomplete and cannot be read.").arg(name) };
    if (reader.format() == "gif" && !gifIsComplete(path))
        return { {},
            Texts::tr("The picture file %1 is damaged or incomplete and cannot be read.").arg(name) };
    if (reader.format() == "bmp" && !bmpIsComplete(path))
        return { {}, Texts::tr("The picture file %1 is incomplete and cannot be read.").arg(name) };
    if (swapsSides(reader.transformation()))
        size.transpose();
    return { size, {} };
}

QImage decodeScaled(const QString &path, QSize target, QString *error)
{
    QImageReader reader(path);
    prepare(reader);
    if (reader.format() == "bmp")
        if (QImage img = bmpReduced(path, target); !img.isNull())
            return img;
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
