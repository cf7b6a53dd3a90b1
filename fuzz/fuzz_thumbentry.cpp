// libFuzzer target for the thumbnail cache's entry reader, since any program of the player may write into
// the cache: any bytes, with any keys, read as the cache reads an entry of one of its folders. Nothing
// crashes, leaks or reaches undefined behaviour, and an entry is taken only when it is no larger than its
// folder allows and names the picture.
#include "pictures/thumbcache.h"

#include <QCoreApplication>
#include <QDir>

namespace
{
thumbcache::Original picture()
{
    thumbcache::Original o;
    o.path = QStringLiteral("/tmp/varno-fuzz/Holiday (1) & more!.jpg");
    o.uri = thumbcache::fileUri(o.path);
    o.name = thumbcache::entryName(o.uri);
    o.mtime = 1700000000;
    o.size = 123456;
    return o;
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static QCoreApplication app(*argc, *argv); // the image format plugins
    // Asked for seeds, the cache's own writer puts the entries it makes for the picture into that folder:
    // a thumbnail in each of two size folders and the marker of a picture it could not read.
    const QString seeds = qEnvironmentVariable("VARNO_FUZZ_SEEDS");
    if (!seeds.isEmpty()) {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(QDir(seeds).absolutePath()));
        QImage reduced(200, 150, QImage::Format_RGB32);
        for (int y = 0; y < reduced.height(); ++y)
            for (int x = 0; x < reduced.width(); ++x)
                reduced.setPixel(x, y, qRgb(x, y, 128));
        thumbcache::storeLater(picture(), reduced, reduced.size(), 256);
        thumbcache::storeFailureLater(picture(), QStringLiteral("Not a JPEG file: starts with 0x89 0x50"));
        thumbcache::waitForWrites();
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const thumbcache::Original o = picture();
    // The failure marker's side, then each size folder's.
    const int side = std::array { 16, 128, 256, 512, 1024 }[size % 5];
    const QImage img = thumbcache::readEntry(
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)), o, side);
    if (!img.isNull()
        && (img.width() > side || img.height() > side
            || img.text(QStringLiteral("Thumb::URI")).toLatin1() != o.uri))
        __builtin_trap();
    return 0;
}
