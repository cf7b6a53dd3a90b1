// The shared thumbnail cache read and written by the rules every desktop program follows: entries are
// checked against the picture's URI, time and size before use, and written whole under a temporary name
// that is then renamed, so that a reader never sees half an entry. Writes run on one thread of their own.
#include "pictures/thumbcache.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryFile>
#include <QThreadPool>
#include <QtEndian>
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
    // A marker is a pixel or so; anything larger is not read.
    constexpr int MarkerSide = 16;
    // The largest folder's entry, 1024 x 1024 RGBA, stored without compression, with room for its keys.
    constexpr qint64 MaxEntryBytes = 1024 * (1 + 1024 * 4) + 65536;

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

    // The picture's time in whole seconds, as the standard writes it; a fraction of a second after it, as
    // some thumbnailers add, is read past: the entry is current when its whole seconds are the picture's.
    bool sameSeconds(QStringView mtime, qint64 seconds)
    {
        if (const qsizetype dot = mtime.indexOf(u'.'); dot >= 0) {
            const QStringView fraction = mtime.mid(dot + 1);
            if (fraction.isEmpty() || !std::all_of(fraction.begin(), fraction.end(), [](QChar c) {
                    return c >= u'0' && c <= u'9';
                }))
                return false;
            mtime = mtime.left(dot);
        }
        bool ok = false;
        return mtime.toLongLong(&ok) == seconds && ok;
    }

    bool sameTimeAndSize(const QImage &entry, const Original &picture)
    {
        if (entry.text(QStringLiteral("Thumb::URI")) != QLatin1String(picture.uri)
            || !sameSeconds(entry.text(QStringLiteral("Thumb::MTime")), picture.mtime))
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

    // The bytes of a PNG file whose every chunk lies within them: libpng sets aside the memory a chunk's
    // header claims before it reads the chunk, and a header may claim gigabytes.
    bool chunksFit(QByteArrayView png)
    {
        if (!png.startsWith("\x89PNG\r\n\x1a\n"))
            return false;
        for (qsizetype at = 8; at < png.size();) {
            // Length, type, data, check sum.
            if (png.size() - at < 12
                || qFromBigEndian<quint32>(png.data() + at) > quint64(png.size() - at - 12))
                return false;
            at += 12 + qFromBigEndian<quint32>(png.data() + at);
        }
        return true;
    }

    QImage readEntry(const QString &path, const Original &picture, int side)
    {
        QFile file(path);
        // Not a file (a pipe would hold the reader for ever), or larger than any entry stored plainly.
        if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > MaxEntryBytes)
            return {};
        return thumbcache::readEntry(file.readAll(), picture, side);
    }

    // The PNG chunk check sum (ISO 3309 CRC-32), bit by bit: the chunks it covers are short.
    quint32 crc32(QByteArrayView bytes)
    {
        quint32 c = 0xFFFFFFFFu;
        for (const char b : bytes) {
            c ^= uchar(b);
            for (int k = 0; k < 8; ++k)
                c = (c >> 1) ^ (0xEDB88320u & (0u - (c & 1)));
        }
        return ~c;
    }

    // A text chunk, never compressed: readers of the cache look for the keys in plain tEXt chunks, and
    // Qt's writer compresses any text longer than 40 characters. A text beyond Latin-1 goes as UTF-8.
    QByteArray textChunk(const QString &key, const QString &text)
    {
        const bool latin1 = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 256; });
        const QByteArray typed = (latin1 ? "tEXt" : "iTXt") + key.toLatin1() + '\0'
            + (latin1 ? text.toLatin1() : QByteArray(4, '\0') + text.toUtf8());
        // The length of the data after the type, the type and data, their check sum.
        QByteArray chunk(4, '\0');
        qToBigEndian(quint32(typed.size() - 4), chunk.data());
        chunk += typed + QByteArray(4, '\0');
        qToBigEndian(crc32(typed), chunk.data() + chunk.size() - 4);
        return chunk;
    }

    // The image as a PNG with the texts in chunks right after the header, or empty when it cannot be made.
    QByteArray encode(const QImage &img, const QList<std::pair<QString, QString>> &texts)
    {
        // The pixels alone: whatever texts the picture came with are not the entry's.
        const QImage bare(img.constBits(), img.width(), img.height(), img.bytesPerLine(), img.format());
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        if (!QImageWriter(&buffer, "png").write(bare))
            return {};
        QByteArray png = buffer.data();
        // The signature, then the header chunk: length, type, 13 bytes, check sum.
        constexpr qsizetype HeaderEnd = 8 + 4 + 4 + 13 + 4;
        if (png.size() < HeaderEnd || png.mid(12, 4) != "IHDR")
            return {};
        for (auto it = texts.rbegin(); it != texts.rend(); ++it)
            png.insert(HeaderEnd, textChunk(it->first, it->second));
        return png;
    }

    // Writes an entry whole under a temporary name beside it, then renames it over the old one; an entry
    // there that is sound and current stays, whoever wrote it, so no two programs take turns rewriting it.
    void writeEntry(const QString &folder,
        int side,
        const Original &picture,
        const QImage &img,
        QList<std::pair<QString, QString>> texts)
    {
        const QString target = folder + QLatin1Char('/') + picture.name;
        if (!makeFolder(folder) || !readEntry(target, picture, side).isNull())
            return;
        texts.prepend({ QStringLiteral("Software"), Software });
        texts.prepend({ QStringLiteral("Thumb::Size"), QString::number(picture.size) });
        texts.prepend({ QStringLiteral("Thumb::MTime"), QString::number(picture.mtime) });
        texts.prepend({ QStringLiteral("Thumb::URI"), QString::fromLatin1(picture.uri) });
        const QByteArray png = encode(img, texts);
        // Made with permissions 0600; removed again unless it is renamed into place.
        QTemporaryFile file(target + QStringLiteral(".XXXXXX"));
        // A full disk shows at the latest when the last bytes are flushed.
        if (png.isEmpty() || !file.open() || file.write(png) != png.size() || !file.flush())
            return;
        if (std::rename(QFile::encodeName(file.fileName()).constData(), QFile::encodeName(target).constData())
            == 0)
            file.setAutoRemove(false);
    }

    // The key for the type the picture's name gives, if any; the library takes its pictures by name.
    QList<std::pair<QString, QString>> mimeOf(const QString &path)
    {
        const QString suffix = QFileInfo(path).suffix().toLower();
        const QString key = QStringLiteral("Thumb::Mimetype");
        if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg"))
            return { { key, QStringLiteral("image/jpeg") } };
        if (suffix == QLatin1String("gif") || suffix == QLatin1String("bmp")
            || suffix == QLatin1String("png"))
            return { { key, QStringLiteral("image/") + suffix } };
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
                picture, s.side);
        if (img.isNull() || !sameShape(img.size(), pictureSize))
            continue;
        // One that does not cover the box, as for a picture smaller than the box, is kept in case no
        // other does.
        if (img.width() >= box.width() && img.height() >= box.height())
            return img;
        if (best.isNull())
            best = std::move(img);
    }
    return best;
}

QImage readEntry(const QByteArray &png, const Original &picture, int side)
{
    if (!chunksFit(png))
        return {};
    QBuffer buffer;
    buffer.setData(png);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "png");
    // A PNG and nothing else: bytes of another format are not handed to its decoder.
    reader.setAutoDetectImageFormat(false);
    // Checked before anything is decoded: an entry larger than its folder allows is not read.
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty() || size.width() > side || size.height() > side)
        return {};
    const QImage img = reader.read();
    if (img.isNull() || img.size() != size || !sameTimeAndSize(img, picture))
        return {};
    return img;
}

std::optional<QString> failure(const Original &picture)
{
    if (!on || picture.mtime < 0)
        return std::nullopt;
    const QString problem
        = readEntry(folder() + FailFolder + QLatin1Char('/') + picture.name, picture, MarkerSide)
              .text(ProblemKey);
    if (problem.isEmpty())
        return std::nullopt;
    return problem;
}

void storeLater(const Original &picture, const QImage &reduced, QSize pictureSize, int side)
{
    if (!on || picture.mtime < 0 || reduced.isNull())
        return;
    writers().start(new Write([root = folder(), picture, reduced, pictureSize, side] {
        const QList<std::pair<QString, QString>> mime = mimeOf(picture.path);
        for (const SizeFolder &s : Sizes) {
            const QSize size = fitted(pictureSize, s.side);
            if (s.side > side || reduced.width() < size.width() || reduced.height() < size.height())
                continue;
            QImage img = reduced.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            // The standard's thumbnails are 8-bit RGBA.
            writeEntry(root + QLatin1Char('/') + QLatin1String(s.name), s.side, picture,
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
        writeEntry(root + FailFolder, MarkerSide, picture, marker,
            mimeOf(picture.path) << std::pair(ProblemKey, problem));
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
