// The "Image Library" command: the library window over the main window, then the chosen picture.
#include "app/vxmain.h"
#include "pictures/libfrm.h"
#include "platform/picturebox.h"

void vxmain::cb_lib_Click()
{
    PuzzleState &s = m_state;
    if (!s.allows(Command::Library))
        return;
    m_platform.pointers.set(PointerShape::Hourglass);
    vxrz->clearPicture();
    {
        const LibraryHost host { s, m_platform, [this] { PickImageFile(); },
            [this](const QString &mode) { return LoadPic(mode); } };
        libfrm dialog(host, this);
        m_platform.pointers.set(PointerShape::Default);
        m_platform.modals.exec(dialog);
    }
    // A run that ended while the window stood open loads nothing more.
    if (m_ending)
        return;
    hideFrameBars();
    s.InPlay = false;
    if (!s.PicFile.isEmpty() && LoadPic(QStringLiteral("Load")))
        return;
    // No picture (Cancel, or one that cannot be shown): the empty board, and a tray without old pieces.
    s.PicFile.clear();
    ScrResize();
}
