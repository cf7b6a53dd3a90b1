// The shared thumbnail cache read and written by the rules every desktop program follows: entries are
// checked against the picture's URI, time and size before use, and written whole under a temporary name
// that is then renamed, so that a reader never sees half an entry. Writes run on one thread of their own.
#include "pictures/thumbcache.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryFile>
#include <QThreadPool>
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif

namespace thumbcache
{
namespace
{
    struct SizeFolder {
        int side;
        const char *name;
    };
    constexpr SizeFolder Sizes[]
        = { { 128, "normal" }, { 256, "large" }, { 512, "x-large" }, { 1024, "xx-large" } };

    // Our own failures only: another program may read what we cannot, and we what it cannot.
    const QString FailFolder = QStringLiteral("/fail/varno-" VARNO_VERSION);
    const QString Software = QStringLiteral("Varno " VARNO_VERSION);
    // A failure's problem rides in the marker under the PNG's own keyword for a description.
    const QString ProblemKey = QStringLiteral("Description");

    std::atomic<bool> on = true;

    QThreadPool &writers()
    {
        static QThreadPool pool;
        static const bool once = [] {
            // One writer: the cache never takes more than one core from the window.
            pool.setMaxThreadCount(1);
            // At the end of the program the writes not yet begun are dropped; the one under way ends.
            qAddPostRoutine([] {
                writers().clear();
                writers().waitForDone();
            });
            return true;
        }();
        Q_UNUSED(once);
        return pool;
    }

    // A write for the writer thread. The pool hands it over under a lock of Qt's own, which
    // ThreadSanitizer cannot see in a Qt built without it (`make tsan`), so the write announces the
    // hand-over itself; in any other build it is only the write.
    class Write : public QRunnable
    {
    public:
        explicit Write(std::function<void()> write)
            : m_write(std::move(write))
        {
#ifdef __SANITIZE_THREAD__
            __tsan_release(this);
#endif
        }
        void run() override
        {
#ifdef __SANITIZE_THREAD__
            __tsan_acquire(this);
#endif
            m_write();
        }

    private:
        std::function<void()> m_write;
    };

    // Creates a folder and the missing ones above it, readable by the owner only.
    bool makeFolder(const QString &path)
    {
        const QByteArray name = QFile::encodeName(path);
        struct stat st {
        };
        if (::stat(name.constData(), &st) == 0)
            return S_ISDIR(st.st_mode);
        const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
        if (slash > 0 && !makeFolder(path.left(slash)))
            return false;
        return ::mkdir(name.constData(), 0700) == 0 || errno == EEXIST;
    }

    bool sameTimeAndSize(const QImage &entry, const Original &picture)
    {
        bool ok = false;
        if (entry.text(QStringLiteral("Thumb::URI")) != QLatin1String(picture.uri)
            || entry.text(QStringLiteral("Thumb::MTime")).toLongLong(&ok) != picture.mtime || !ok)
            return false;
        // The size is optional; when it is there it must agree.
        const QString size = entry.text(QStringLiteral("Thumb::Size"));
        return size.isEmpty() || size.toLongLong() == picture.size;
    }

    // The picture's shape, to the pixel a rounding may cost.
    bool sameShape(QSize thumb, QSize picture)
    {
        const qint64 cross
            = qint64(thumb.height()) * picture.width() - qint64(thumb.width()) * picture.height();
        return std::abs(cross) <= std::max(picture.width(), picture.height());
    }

    // A sound, current entry of a size folder, or null.
    QImage readEntry(const QString &path, const Original &picture, int side, QSize pictureSize)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QImageReader reader(&file, "png");
        // Checked before anything is decoded: an entry larger than its folder allows is not read.
        const QSize size = reader.size();
        if (!size.isValid() || size.isEmpty() || size.width() > side || size.height() > side
            || !sameShape(size, pictureSize))
            return {};
        const QImage img = reader.read();
        if (img.isNull() || img.size() != size || !sameTimeAndSize(img, picture))
            return {};
        return img;
    }

    // Writes an entry whole under a temporary name beside it, then renames it over the old one.
    void writeEntry(const QString &folder, const Original &picture, QImage img, const QString &mime)
    {
        if (!makeFolder(folder))
            return;
        img.setText(QStringLiteral("Thumb::URI"), QString::fromLatin1(picture.uri));
        img.setText(QStringLiteral("Thumb::MTime"), QString::number(picture.mtime));
        img.setText(QStringLiteral("Thumb::Size"), QString::number(picture.size));
        if (!mime.isEmpty())
            img.setText(QStringLiteral("Thumb::Mimetype"), mime);
        img.setText(QStringLiteral("Software"), Software);
        // Made with permissions 0600; removed again unless it is renamed into place.
        QTemporaryFile file(folder + QLatin1Char('/') + picture.name + QStringLiteral(".XXXXXX"));
        if (!file.open())
            return;
        QImageWriter writer(&file, "png");
        // A full disk shows at the latest when the last bytes are flushed.
        if (!writer.write(img) || !file.flush())
            return;
        const QString target = folder + QLatin1Char('/') + picture.name;
        if (std::rename(QFile::encodeName(file.fileName()).constData(), QFile::encodeName(target).constData())
            == 0)
            file.setAutoRemove(false);
    }

    // The type the picture's name gives; the library takes its pictures by name.
    QString mimeOf(const QString &path)
    {
        const QString suffix = QFileInfo(path).suffix().toLower();
        if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg"))
            return QStringLiteral("image/jpeg");
        if (suffix == QLatin1String("gif") || suffix == QLatin1String("bmp")
            || suffix == QLatin1String("png"))
            return QStringLiteral("image/") + suffix;
        return {};
    }

} // namespace

QByteArray fileUri(const QString &path)
{
    const QString absolute = QDir::cleanPath(QDir(path).absolutePath());
    return QByteArrayLiteral("file://") + QFile::encodeName(absolute).toPercentEncoding("/!$&'()*+,:=@");
}

QString entryName(const QByteArray &uri)
{
    return QString::fromLatin1(QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex()) + ".png";
}

Original original(const QString &path)
{
    Original o;
    o.path = path;
    o.uri = fileUri(path);
    o.name = entryName(o.uri);
    struct stat st {
    };
    if (::stat(QFile::encodeName(path).constData(), &st) == 0 && S_ISREG(st.st_mode)) {
        o.mtime = st.st_mtime;
        o.size = st.st_size;
    }
    return o;
}

QString folder()
{
    // The base directory rules: an unset or relative XDG_CACHE_HOME counts as not set.
    const QString xdg = qEnvironmentVariable("XDG_CACHE_HOME");
    const QString base
        = xdg.startsWith(QLatin1Char('/')) ? xdg : QDir::homePath() + QStringLiteral("/.cache");
    return base + QStringLiteral("/thumbnails");
}

int sideFor(QSize box)
{
    const int longer = std::max(box.width(), box.height());
    for (const SizeFolder &s : Sizes)
        if (s.side >= longer)
            return s.side;
    return Sizes[std::size(Sizes) - 1].side;
}

QSize fitted(QSize picture, int side)
{
    const int longer = std::max(picture.width(), picture.height());
    if (longer <= side)
        return picture;
    return QSize(std::max(1, int(qRound64(double(picture.width()) * side / longer))),
        std::max(1, int(qRound64(double(picture.height()) * side / longer))));
}

QImage find(const Original &picture, QSize box, QSize pictureSize)
{
    if (!on || picture.mtime < 0 || pictureSize.isEmpty())
        return {};
    const QString root = folder();
    const int side = sideFor(box);
    QImage best;
    int tried = 0;
    for (const SizeFolder &s : Sizes) {
        // The folder for the box and the next larger one; a smaller one would be blown up.
        if (s.side < side)
            continue;
        if (tried++ == 2)
            break;
        QImage img
            = readEntry(root + QLatin1Char('/') + QLatin1String(s.name) + QLatin1Char('/') + picture.name,
                picture, s.side, pictureSize);
        if (img.isNull())
            continue;
        // A picture smaller than the box is covered by its own size.
        if ((img.width() >= box.width() && img.height() >= box.height()) || img.size() == pictureSize)
            return img;
        if (best.isNull())
            best = std::move(img);
    }
    return best;
}

std::optional<QString> failure(const Original &picture)
{
    if (!on || picture.mtime < 0)
        return std::nullopt;
    QImageReader reader(folder() + FailFolder + QLatin1Char('/') + picture.name, "png");
    // A marker is a pixel or so; anything larger is not read.
    if (reader.size().width() > 16 || reader.size().height() > 16)
        return std::nullopt;
    const QImage marker = reader.read();
    const QString problem = marker.text(ProblemKey);
    if (marker.isNull() || problem.isEmpty() || !sameTimeAndSize(marker, picture))
        return std::nullopt;
    return problem;
}

void storeLater(const Original &picture, const QImage &reduced, QSize pictureSize, int side)
{
    if (!on || picture.mtime < 0 || reduced.isNull())
        return;
    writers().start(new Write([root = folder(), picture, reduced, pictureSize, side] {
        const QString mime = mimeOf(picture.path);
        for (const SizeFolder &s : Sizes) {
            const QSize size = fitted(pictureSize, s.side);
            if (s.side > side || reduced.width() < size.width() || reduced.height() < size.height())
                continue;
            QImage img = reduced.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            // The standard's thumbnails are 8-bit RGBA.
            writeEntry(root + QLatin1Char('/') + QLatin1String(s.name), picture,
                img.convertToFormat(QImage::Format_ARGB32), mime);
        }
    }));
}

void storeFailureLater(const Original &picture, const QString &problem)
{
    if (!on || picture.mtime < 0)
        return;
    writers().start(new Write([root = folder(), picture, problem] {
        // The standard's empty picture: one transparent pixel carrying the keys.
        QImage marker(1, 1, QImage::Format_ARGB32);
        marker.fill(Qt::transparent);
        marker.setText(ProblemKey, problem);
        writeEntry(root + FailFolder, picture, marker, mimeOf(picture.path));
    }));
}

void waitForWrites()
{
    writers().waitForDone();
}

void setEnabled(bool enable)
{
    on = enable;
}

bool enabled()
{
    return on;
}

} // namespace thumbcache
