// The benchmark's camera pictures: ten photo-like scenes, each cut ten ways, so that every file differs;
// JPEG quality 90 as cameras' fine setting, and a 160 x 107 thumbnail as they embed it. Both cores draw.
#include "cameralibrary.h"

#include "exifwriter.h"
#include "picturegen.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

namespace cameralibrary
{
namespace
{
    const QString Done = QStringLiteral(".complete-1");
    constexpr int Scenes = 10;

    QByteArray jpeg(const QImage &img, int quality)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QImageWriter writer(&buffer, "jpeg");
        writer.setQuality(quality);
        return writer.write(img) ? bytes : QByteArray();
    }

    bool write(const QString &path, const QByteArray &bytes)
    {
        QFile f(path);
        return !bytes.isEmpty() && f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
    }

    // Scene s gives files s, s + 10, s + 20, ...: the same landscape cut at ten offsets.
    bool makeScene(const QString &base, int s)
    {
        const QImage scene = picturegen::scene(QSize(6400, 4300), quint32(100 + s));
        for (int cut = 0; cut < Count / Scenes; ++cut) {
            const QImage photo = scene.copy(cut * 40, cut * 30, 6000, 4000);
            const QByteArray bytes = jpeg(photo, 90);
            const QImage small = photo.scaled(640, 427, Qt::IgnoreAspectRatio, Qt::FastTransformation)
                                     .scaled(160, 107, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            const QString name
                = QStringLiteral("/IMG_%1.jpg").arg(cut * Scenes + s + 1, 4, 10, QLatin1Char('0'));
            if (!write(base + "/plain" + name, bytes)
                || !write(base + "/exif" + name, exifwriter::withExif(bytes, 1, jpeg(small, 75))))
                return false;
        }
        return true;
    }
} // namespace

bool ensure(const QString &base)
{
    if (QFile::exists(base + "/" + Done))
        return true;
    std::printf(
        "  making the camera library once (100 pictures of 6000 x 4000, twice) in %s\n", qPrintable(base));
    std::fflush(stdout);
    if (!QDir().mkpath(base + "/plain") || !QDir().mkpath(base + "/exif"))
        return false;
    std::atomic<int> next = 0;
    std::atomic<bool> ok = true;
    const auto work = [&] {
        for (int s; (s = next++) < Scenes;)
            if (!makeScene(base, s))
                ok = false;
    };
    std::thread helper(work);
    work();
    helper.join();
    return ok && QFile(base + "/" + Done).open(QIODevice::WriteOnly);
}

} // namespace cameralibrary
