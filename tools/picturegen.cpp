// Draws landscapes and graphic patterns from a seed, so the game ships no third-party images.
#include "picturegen.h"

#include "gifwriter.h"
#include "landscape.h"

#include <QDir>
#include <QFileInfo>
#include <QImageWriter>

namespace picturegen
{

namespace
{

    bool fail(QString *error, const QString &message)
    {
        if (error)
            *error = message;
        return false;
    }

    QImage coast(QSize size, quint32 seed)
    {
        return landscape(size, seed, Place::Coast);
    }

    QImage valley(QSize size, quint32 seed)
    {
        return landscape(size, seed, Place::Valley);
    }

    struct Starter {
        const char *name;
        QImage (*draw)(QSize, quint32);
        QSize size;
        quint32 seed;
        int quality; // JPEG quality; -1 where the format has none
    };

    bool write(const Starter &starter, const QString &path, QString *error)
    {
        const QImage image = starter.draw(starter.size, starter.seed);
        // The file name's suffix names the format; Qt reads GIF but cannot write it, so our own writer does.
        const QByteArray format = QFileInfo(path).suffix().toLatin1();
        if (format == "gif")
            return gifwriter::write(image, path) || fail(error, QStringLiteral("cannot write %1").arg(path));
        QImageWriter writer(path, format);
        if (starter.quality >= 0)
            writer.setQuality(starter.quality);
        return writer.write(image)
            || fail(error, QStringLiteral("cannot write %1: %2").arg(path, writer.errorString()));
    }

} // namespace

QImage scene(QSize size, quint32 seed)
{
    // The seed alone picks the place, so that scene() stays a pure function of its arguments.
    const Place place = (seed * 2654435761u) >> 31 ? Place::Valley : Place::Coast;
    return landscape(size, seed, place);
}

bool writeSamples(const QString &folder, QString *error)
{
    const QDir dir(folder);
    if (folder.isEmpty() || !dir.exists())
        return fail(error, QStringLiteral("no such folder: %1").arg(folder));
    // Fixed seeds: the starter library is the same on every build.
    const Starter starters[] = {
        { "VX_harbour.jpg", coast, { 1024, 768 }, 7, 90 },
        { "VX_panorama.jpg", valley, { 1600, 600 }, 1, 90 },
        { "VX_tower.bmp", coast, { 360, 540 }, 31, -1 },
        { "VX_mosaic.bmp", pattern, { 520, 390 }, 5, -1 },
        { "VX_lighthouse.gif", coast, { 640, 480 }, 44, -1 },
    };
    for (const Starter &starter : starters)
        if (!write(starter, dir.filePath(QString::fromLatin1(starter.name)), error))
            return false;
    return true;
}

} // namespace picturegen
