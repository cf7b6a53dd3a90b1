// Thumbnails from the desktop's cache when it has a current one, from the embedded EXIF picture when
// there is a good one, otherwise from the decoder's own reduced-size decoding (libjpeg's 1/8 scale for
// JPEG), spread over the cores with a shared counter. What is made here goes to the cache afterwards.
#include "pictures/thumbnail.h"

#include "pictures/exifthumbnail.h"
#include "render/picturefile.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QThread>
#include <QTransform>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <optional>
#include <thread>

namespace thumbnail
{
namespace
{
    // The reader applies the orientation by mirroring first and then turning; the embedded picture is
    // stored the way the main picture is, so it gets the same treatment.
    QImage oriented(QImage img, QImageIOHandler::Transformations t)
    {
        const bool mirror = t & QImageIOHandler::TransformationMirror;
        const bool flip = t & QImageIOHandler::TransformationFlip;
        if (mirror || flip)
            img = img.mirrored(mirror, flip);
        if (t & QImageIOHandler::TransformationRotate90)
            img = img.transformed(QTransform().rotate(90));
        return img;
    }

    // The embedded thumbnail, turned as the picture is, or a null image when there is none that would
    // look right at size.
    QImage fromEmbedded(const QString &path, QSize size)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const uchar *data = file.map(0, file.size());
        if (!data)
            return {};
        const std::optional<exif::Range> range
            = exif::embeddedThumbnail(QByteArrayView(reinterpret_cast<const char *>(data), file.size()));
        if (!range)
            return {};
        QImageReader main(path);
        const QSize mainSize = main.size();
        const QImageIOHandler::Transformations t = main.transformation();
        QByteArray bytes
            = QByteArray::fromRawData(reinterpret_cast<const char *>(data) + range->offset, range->length);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QImageReader reader(&buffer, "jpeg");
        QSize thumbSize = reader.size();
        if (!mainSize.isValid() || !thumbSize.isValid() || thumbSize.isEmpty())
            return {};
        // A thumbnail with bars, or of another crop, is not the picture the board will show.
        const double ratio = double(thumbSize.width()) / thumbSize.height();
        const double mainRatio = double(mainSize.width()) / mainSize.height();
        if (std::abs(ratio / mainRatio - 1.0) > 0.03)
            return {};
        if (t & QImageIOHandler::TransformationRotate90)
            thumbSize.transpose();
        if (thumbSize.width() < size.width() || thumbSize.height() < size.height())
            return {};
        const QImage img = reader.read();
        if (img.isNull())
            return {};
        return oriented(img, t);
    }

    // A thumbnail stretched to the box, over white where it is transparent.
    QImage toBox(const QImage &img, QSize size)
    {
        const QImage scaled
            = img.size() == size ? img : img.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        if (!scaled.hasAlphaChannel())
            return scaled.convertToFormat(QImage::Format_RGB32);
        QImage out(size, QImage::Format_RGB32);
        out.fill(Qt::white);
        QPainter(&out).drawImage(0, 0, scaled);
        return out;
    }

    // The size a picture is decoded at: its own shape, large enough for the box and for the cache's
    // thumbnail of the box's size, and never larger than the picture.
    QSize reducedSize(QSize picture, QSize box)
    {
        const QSize fit = thumbcache::fitted(picture, thumbcache::sideFor(box));
        const double scale = std::min(1.0,
            std::max({ double(box.width()) / picture.width(), double(box.height()) / picture.height(),
                double(fit.width()) / picture.width() }));
        const QSize wanted = box.expandedTo(fit).boundedTo(picture);
        return QSize(qRound(picture.width() * scale), qRound(picture.height() * scale)).expandedTo(wanted);
    }
} // namespace

Thumb decode(const QString &path, QSize box, int ratio)
{
    const QSize size = box * ratio;
    Thumb out;
    // The checks that refuse a file for the board refuse it here too, before anything is decoded.
    const picturefile::Header header = picturefile::probe(path);
    out.error = header.error;
    if (out.error.isEmpty()) {
        const thumbcache::Original source = thumbcache::original(path);
        if (const QImage cached = thumbcache::find(source, size, header.size); !cached.isNull()) {
            out.image = toBox(cached, size);
            return out;
        }
        if (const std::optional<QString> problem = thumbcache::failure(source)) {
            out.error = *problem;
        } else {
            out.source = source;
            out.shown = header.size;
            out.made = fromEmbedded(path, size);
            if (out.made.isNull())
                out.made = picturefile::decodeScaled(path, reducedSize(header.size, size), &out.error);
            out.failed = out.made.isNull();
        }
    }
    out.image = out.error.isEmpty() ? toBox(out.made, size) : unreadableMark(box, ratio);
    return out;
}

std::vector<Thumb> decodeAll(const QStringList &paths, QSize box, int ratio)
{
    std::vector<Thumb> out(paths.size());
    std::atomic<qsizetype> next = 0;
    const auto work = [&] {
        for (qsizetype i; (i = next++) < paths.size();)
            out[i] = decode(paths[i], box, ratio);
    };
    // The calling thread takes its share; one helper for each further core.
    const qsizetype helpers = std::min<qsizetype>(paths.size(), QThread::idealThreadCount()) - 1;
    std::vector<std::thread> threads;
    for (qsizetype i = 0; i < helpers; ++i)
        threads.emplace_back(work);
    work();
    for (std::thread &t : threads)
        t.join();
    return out;
}

void keep(const std::vector<Thumb> &thumbs)
{
    for (const Thumb &t : thumbs) {
        if (!t.made.isNull())
            thumbcache::storeLater(t.source, t.made, t.shown, thumbcache::sideFor(t.image.size()));
        else if (t.failed)
            thumbcache::storeFailureLater(t.source, t.error);
    }
}

QImage unreadableMark(QSize size, int ratio)
{
    QImage img(size * ratio, QImage::Format_RGB32);
    img.fill(QColor(236, 232, 224));
    // Drawn in the box's own pixels, at the device's resolution.
    img.setDevicePixelRatio(ratio);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(90, 90, 90), 2));
    p.drawRect(QRectF(img.rect()).adjusted(1, 1, -1, -1));
    const int side = std::min(size.width(), size.height()) / 2;
    const QRectF cross(QPointF(size.width() - side, size.height() - side) / 2, QSizeF(side, side));
    p.setPen(QPen(QColor(208, 40, 32), 5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(cross.topLeft(), cross.bottomRight());
    p.drawLine(cross.topRight(), cross.bottomLeft());
    p.end();
    img.setDevicePixelRatio(1);
    return img;
}

} // namespace thumbnail
