// The puzzle type switch and the board size command.
#include "app/vxmain.h"
#include "options/rzfrm.h"
#include "platform/facebutton.h"
#include "platform/picturebox.h"

void vxmain::cb_type_Click()
{
    PuzzleState &s = m_state;
    if (!s.allows(Command::Type))
        return;
    if (s.InPlay
        && m_platform.messages.show(tr("Changing the Puzzle Type will Clear the Current Puzzle\n"
                                       "Do You Wish to Change Type"),
               tr("Change Puzzle Type"), MsgStyle::YesNoQuestion)
            == MsgAnswer::No)
        return;
    if (cb_type->Tag == Codes::Drag) {
        cb_type->setFace(faceResource(QStringLiteral("cb_type_s")));
        cb_type->Tag = Codes::Slide;
        s.PuzType = Codes::Slide;
        for (PictureBox *box : vxpcs)
            box->hide();
    } else {
        cb_type->setFace(faceResource(QStringLiteral("cb_type_d")));
        cb_type->Tag = Codes::Drag;
        s.PuzType = Codes::Drag;
        for (int i = 0; i < Codes::TraySlots; ++i)
            vxpcs[i]->setVisible(i < s.GridN);
    }
    if (s.InPlay) {
        hideFrameBars();
        s.InPlay = false;
        // A picture that can no longer be read (LoadPic has told why) leaves an empty board, empty tray
        // boxes and no picture, so that no scramble cuts tiles from a picture that is gone.
        if (!LoadPic(QStringLiteral("Load"))) {
            endWithoutPuzzle();
            ScrResize();
        }
    } else {
        ScrResize();
    }
}

void vxmain::cb_resize_Click()
{
    PuzzleState &s = m_state;
    if (!s.allows(Command::Resize))
        return;
    const Integer before = s.GridN;
    {
        rzfrm dialog(s.GridN, this);
        m_platform.modals.exec(dialog);
    }
    if (s.GridN == before)
        return;
    s.setGridSize(s.GridN);
    // A layout can leave the board box a pixel beyond the picture's fitted box; the new tiles are cut
    // from no more than that box, so that a load, which fits the picture afresh, finds them inside it.
    if (!s.PicFile.isEmpty())
        vxrz->setBoxSize(
            std::min(vxrz->width(), m_fitted.width()), std::min(vxrz->height(), m_fitted.height()));
    ScrResize();
    if (!s.PicFile.isEmpty())
        Scramble();
}
