// The main window's fixed size and centring, and ScrResize: the one layout of the board, its frames,
// the command bar and the tray, derived from the board box's size, GridN and the puzzle type.
#include "app/vxmain.h"

#include "platform/facebutton.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"

#include <QScreen>

using vb::CInt;
using vb::CLng;

void vxmain::FrmRzMove()
{
    // Re-entered from the resize events that its own size change raises: the nested run is idempotent.
    resize(806, 606);
    ScrResize();
    drawTrayHeld();
    const QScreen *sc = screen();
    if (!sc)
        return;
    const QRect g = sc->geometry();
    const Long left = CLng(g.width()) / 2 - CLng(width()) / 2;
    const Long top = CLng(g.height()) / 2 - CLng(height()) / 2;
    move(g.x() + left, g.y() + top);
}

void vxmain::Form_Resize()
{
    if (isMinimized())
        return;
    FrmRzMove();
}

void vxmain::Form_Activate()
{
    PuzzleState &s = m_state;
    if (s.MinState > 1) {
        s.MinState = -1;
        if (vxmin) {
            vxmin->close();
            vxmin->deleteLater();
            vxmin = nullptr;
        }
        FrmRzMove();
    }
}

void vxmain::ScrResize()
{
    PuzzleState &s = m_state;
    const int SW = m_client->width();
    const int SH = m_client->height();

    hideFrameBars();
    // A tile is never narrower or flatter than one pixel, whatever the board box.
    s.TileW = std::max<Integer>(1, vb::checked16(CLng(vxrz->width()) / s.GridN));
    s.TileH = std::max<Integer>(1, vb::checked16(CLng(vxrz->height()) / s.GridN));
    vxblank->setBoxSize(s.TileW, s.TileH);
    vxdrag->setBoxSize(s.TileW + 1, s.TileH + 1);
    hlpfr_rz->resize(s.TileW + 2, s.TileH + 2);
    hlpfr_rz->raise();
    hlpfr_pcs->resize(hlpfr_rz->size());
    hlpfr_pcs->raise();
    vxrz->setBoxSize(vb::checked16(s.TileW * s.GridN + 1), vb::checked16(s.TileH * s.GridN + 1));

    const int cmdH = fr_cmd->height();
    Long Y;
    if (s.PuzType == Codes::Drag) {
        // The outer frame (board + 17), the tray row (+ 4) and the command bar must fit the height.
        const Long A = vb::checked16(vxrz->height() + cmdH + 17 + s.TileH + 4);
        if (A > SH)
            Y = cmdH + 2;
        else
            Y = cmdH + CLng(SH - A - cmdH) / 2;
    } else {
        Y = CLng(SH) / 2 - CLng(vxrz->height() + 8) / 2;
    }
    vxframe_main->setGeometry(
        CLng(SW) / 2 - CLng(vxrz->width() + 8) / 2, Y, vxrz->width() + 17, vxrz->height() + 17);
    const QRect M = vxframe_main->geometry();
    vxframe_border->setGeometry(M.x() + 2, M.y() + 2, M.width() - 4, M.height() - 4);
    const QRect B = vxframe_border->geometry();
    vxframe_inner->setGeometry(B.x() + 4, B.y() + 4, B.width() - 8, B.height() - 8);
    vxrz->move(M.x() + 8, M.y() + 8);
    vxrz_s->move(vxrz->pos());
    for (ShapeBox *bar : { vxfr_t, vxfr_b, vxfr_l, vxfr_r })
        bar->raise();

    fr_cmd->move(CLng(SW) / 2 - CLng(fr_cmd->width()) / 2, fr_cmd->y());
    lblmsg->move(fr_cmd->x() - 1, fr_cmd->y() - 1);
    const int R = fr_cmd->x() + fr_cmd->width();
    lbllogo->move(R + (CLng(SW - R) / 2 - CLng(lbllogo->width()) / 2), 0);
    imglogo->move(1, 0);

    // The tray row, centred in the space under the frame when it fits there.
    Long trayY = M.y() + M.height() + 2;
    if (float(s.TileH) + float(trayY) < float(SH))
        trayY = trayY + (CLng(SH - trayY) / 2 - s.TileH / 2);
    const double G = double(CLng(M.width() - s.TileW * s.GridN) / (s.GridN - 1));
    Integer X = CInt(M.x());
    for (int i = 0; i < s.GridN; ++i) {
        vxpcs[i]->setGeometry(X, trayY, s.TileW, s.TileH);
        vxpcs[i]->setBoxSize(s.TileW, s.TileH);
        vxpcs[i]->clearPicture();
        outlineTrayBox(i);
        X = CInt(X + s.TileW + G);
    }
    if (s.PuzType == Codes::Drag)
        for (int i = 0; i < Codes::TraySlots; ++i)
            vxpcs[i]->setVisible(i < s.GridN);
    // The keyboard's cursor follows the tiles' new size, or goes with the puzzle (a type switch ends play).
    showCursor();
}
