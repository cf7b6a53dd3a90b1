// LoadPic: a picture file onto the board (mode "Load") or into the picture library (mode "Lib").
#include "app/vxmain.h"
#include "pictures/librarymodel.h"
#include "platform/picturebox.h"
#include "play/fitting.h"
#include "render/picturefile.h"

#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>
#include <functional>

namespace
{

// Replaces a file only once the new one is whole, so a failed write loses nothing.
bool writeWhole(const QString &target, const std::function<bool(QIODevice &)> &write)
{
    QSaveFile out(target);
    return out.open(QIODevice::WriteOnly) && write(out) && out.commit();
}
} // namespace

bool vxmain::LoadPic(const QString &mode)
{
    PuzzleState &s = m_state;
    m_platform.pointers.set(PointerShape::Hourglass);
    if (mode == QLatin1String("Lib")) {
        const bool stored = storeInLibrary();
        m_platform.pointers.set(PointerShape::Default);
        return stored;
    }
    // Everything that can fail is done before the board changes, so a bad file leaves it as it was.
    const picturefile::Header header = picturefile::probe(s.PicFile);
    QString error = header.error;
    QSize box;
    if (error.isEmpty()) {
        box = fitting::boxPixels(fitting::fitToBoard(header.size));
        if (box.width() < s.GridN || box.height() < s.GridN)
            error = tr("The picture %1 is too narrow or too flat for a board of %2 x %2 tiles.")
                        .arg(QFileInfo(s.PicFile).fileName())
                        .arg(s.GridN);
    }
    if (error.isEmpty())
        // On a dense screen the picture is decoded at device resolution, so the board is sampled from it.
        vxpicfull
            = picturefile::decodeScaled(s.PicFile, fitting::boardFor(box, s.GridN) * m_fineRatio, &error);
    if (!error.isEmpty()) {
        m_platform.pointers.set(PointerShape::Default);
        m_platform.messages.show(error, tr("Open - ERROR"), MsgStyle::Critical);
        return false;
    }

    vxrz->clearPicture();
    vxrz_s->clearPicture();
    vxrz->setBoxSize(box.width(), box.height());
    m_fitted = box;
    ScrResize();
    vxrz_s->setBoxSize(vxrz->width(), vxrz->height());
    // The picture was decoded at exactly this size, smoothly; the stretch is then a plain copy.
    vxrz_s->stretchDraw(vxpicfull, vxrz_s->rect());
    vxpicfull = QImage();
    vxblank->clearPicture();
    vxrz->setPicture(*vxrz_s);
    FrAnimate();
    m_platform.pointers.set(PointerShape::Default);
    return true;
}

bool vxmain::storeInLibrary()
{
    const PuzzleState &s = m_state;
    // The chosen file must be a picture; from here on a failing step is skipped silently.
    const picturefile::Header header = picturefile::probe(s.OpenFile);
    if (!header.error.isEmpty()) {
        m_platform.pointers.set(PointerShape::Default);
        m_platform.messages.show(header.error, tr("Open - ERROR"), MsgStyle::Critical);
        return false;
    }
    const QString target = s.LibPath + QLatin1Char('/') + library::storedName(s.OpenTitle);
    if (s.OpenTitle.right(3).toLower() == QLatin1String("bmp")) {
        // BMP pictures are stored at board size.
        QString error;
        const QImage pblib = picturefile::decodeScaled(
            s.OpenFile, fitting::boxPixels(fitting::fitToBoard(header.size)), &error);
        if (!pblib.isNull())
            writeWhole(target, [&](QIODevice &dev) { return QImageWriter(&dev, "bmp").write(pblib); });
        return true;
    }
    QFile source(s.OpenFile);
    if (!source.open(QIODevice::ReadOnly))
        return true;
    writeWhole(target, [&](QIODevice &dev) {
        while (!source.atEnd()) {
            const QByteArray chunk = source.read(1 << 20);
            if (chunk.isEmpty() || dev.write(chunk) != chunk.size())
                return false;
        }
        return true;
    });
    return true;
}
