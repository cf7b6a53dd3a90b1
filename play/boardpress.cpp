// The scramble command and the board's press handler: slide moves (type "S") and the lift of a piece
// from the board (type "D"), with the solved puzzle's ending.
#include "app/vxmain.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"
#include "play/moves.h"
#include "play/scramble.h"

void vxmain::cb_scramble_Click()
{
    if (!m_state.allows(Command::Scramble))
        return;
    Scramble();
}

void vxmain::Scramble()
{
    PuzzleState &s = m_state;
    m_platform.pointers.set(PointerShape::Hourglass);
    vxrz->clearPicture();
    for (ShapeBox *bar : { vxfr_t, vxfr_b, vxfr_l, vxfr_r })
        bar->hide();
    // The walk lets the window repaint, but input waits until the tables are whole again.
    m_scrambling = true;
    scrambleTables(s, m_random, [this] { m_platform.events.processPendingEvents(true); });
    m_scrambling = false;
    drawBoard();
    if (s.PuzType == Codes::Drag)
        for (PictureBox *box : vxpcs)
            box->clearPicture();
    DrawLines();
    s.InPlay = true;
    resetCursor();
    m_platform.pointers.set(PointerShape::Default);
}

void vxmain::drawBoard()
{
    PuzzleState &s = m_state;
    for (Integer i = 0; i < s.TileTotal; ++i) {
        s.Find_XY(i);
        const TileRec &t = s.Board[i];
        if ((s.PuzType == Codes::Slide && i == s.BlankPos) || t.Home < 0)
            bitBlt(*vxrz, s.PosX, s.PosY, s.TileW, s.TileH, *vxblank, 0, 0);
        else
            bitBlt(*vxrz, s.PosX, s.PosY, s.TileW, s.TileH, *vxrz_s, t.SrcX, t.SrcY);
    }
}

void vxmain::vxrz_MouseDown(Qt::MouseButton, Qt::KeyboardModifiers, float X, float Y)
{
    PuzzleState &s = m_state;
    // Every mouse button and modifier acts alike.
    if (!s.allows(Command::BoardPress) || m_scrambling)
        return;
    placeAt(s, X, Y);
    if (s.HintMode) {
        HelpOn(s.CurPos, false);
        return;
    }
    s.GetCRfromPos(s.CurPos);
    const Integer P = s.CurPos;
    if (s.PuzType != Codes::Slide) {
        liftFromBoard(P, X, Y);
        return;
    }
    s.DragIdx = -1;
    const Integer Q = blankBeside(s, P);
    if (Q >= 0) {
        // The pressed tile's image goes to the blank's place (with the pixel row and column the grid
        // covers), the blank image to the pressed place; then the tables follow.
        s.Find_XY(Q);
        bitBlt(*vxrz, s.PosX, s.PosY, s.TileW + 1, s.TileH + 1, *vxrz_s, s.Board[P].SrcX, s.Board[P].SrcY);
        s.Find_XY(P);
        bitBlt(*vxrz, s.PosX, s.PosY, s.TileW, s.TileH, *vxblank, 0, 0);
        slideTile(s, P, Q);
        DrawLines();
        announce(tr("Piece %1 moved").arg(s.Board[Q].Home + 1));
    }
    if (s.InPlace == s.TileTotal)
        finishSolved();
}

void vxmain::finishSolved()
{
    FrAnimate();
    vxrz->setPicture(*vxrz_s);
    vxrz->repaint();
    m_state.InPlay = false;
    showCursor();
    announce(tr("Solved"));
}
