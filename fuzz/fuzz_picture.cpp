// libFuzzer target for the picture path: the bytes of a file with a picture extension through every check
// and decode that LoadPic makes before the board changes, the pixel limit included. A file that passes
// the checks decodes to exactly the board's size, or says why it cannot.
#include "play/fitting.h"
#include "render/picturefile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <unistd.h>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static QCoreApplication app(*argc, *argv); // the image format plugins
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QString stem = QDir::temp().filePath(QStringLiteral("varno-fuzz-%1.").arg(getpid()));
    const QString path = stem + std::array { "jpg", "gif", "bmp" }[size % 3];
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)
        || f.write(reinterpret_cast<const char *>(data), qint64(size)) != qint64(size))
        __builtin_trap();
    f.close();
    const picturefile::Header header = picturefile::probe(path);
    const int n = 2 + int(size % 10);
    const QSize box = fitting::boxPixels(fitting::fitToBoard(header.size));
    if (header.error.isEmpty() && box.width() >= n && box.height() >= n) {
        if (qint64(header.size.width()) * header.size.height() > picturefile::MaxPixels)
            __builtin_trap();
        const QSize target = fitting::boardFor(box, n);
        QString error;
        const QImage img = picturefile::decodeScaled(path, target, &error);
        if (img.isNull() ? error.isEmpty() : img.size() != target || img.format() != QImage::Format_RGB32)
            __builtin_trap();
    }
    return 0;
}
