// Type "D": lifting a piece from the board or the tray, carrying it with the pointer, and dropping it
// on a board place or a tray box, where it exchanges places with what stood there.
#include "app/vxmain.h"
#include "platform/picturebox.h"
#include "play/moves.h"

#include <QEvent>
#include <functional>

namespace
{
// Watches the window for the events after which the pointer no longer reaches it (deactivated or
// hidden) and reports them; it acts on the game only through the callback.
class PointerLossWatch : public QObject
{
public:
    PointerLossWatch(QObject *window, std::function<void(QObject *)> lost)
        : QObject(window)
        , m_lost(std::move(lost))
    {
        setObjectName(QStringLiteral("pointerLossWatch"));
        window->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::WindowDeactivate || event->type() == QEvent::Hide)
            m_lost(watched);
        return false;
    }

private:
    std::function<void(QObject *)> m_lost;
};
} // namespace

void vxmain::liftFromBoard(Integer P, float X, float Y)
{
    PuzzleState &s = m_state;
    if (s.Board[P].Home < 0)
        return;
    s.Find_XY(P);
    vxdrag->clearPicture();
    vxdrag->move(vxrz->x() + int(X), vxrz->y() + int(Y));
    // The drag image is the piece as the board shows it, grid lines at its right and bottom edge.
    bitBlt(*vxdrag, 0, 0, s.TileW + 1, s.TileH + 1, *vxrz, s.PosX, s.PosY);
    bitBlt(*vxrz, s.PosX, s.PosY, s.TileW, s.TileH, *vxblank, 0, 0);
    startDrag();
    s.DragFrom = Codes::FromBoard;
    s.DragIdx = P;
    DrawLines();
    announce(tr("Piece %1 lifted").arg(s.Board[P].Home + 1));
}

void vxmain::vxpcs_MouseDown(int Index, Qt::MouseButton, Qt::KeyboardModifiers, float X, float Y)
{
    PuzzleState &s = m_state;
    if (!s.allows(Command::BoardPress) || m_scrambling)
        return;
    if (s.HintMode) {
        HelpOn(Integer(Index), true);
        return;
    }
    if (s.PuzType != Codes::Drag || s.Pcs[Index].Home < 0)
        return;
    vxdrag->clearPicture();
    vxdrag->move(vxpcs[Index]->x() + int(X), vxpcs[Index]->y() + int(Y));
    bitBlt(*vxdrag, 0, 0, s.TileW, s.TileH, *vxrz_s, s.Pcs[Index].SrcX, s.Pcs[Index].SrcY);
    vxdrag->drawRectOutline(0, 0, s.TileW, s.TileH, fromBgr(s.GridColor));
    vxpcs[Index]->clearPicture();
    outlineTrayBox(Index);
    vxpcs[Index]->repaint();
    startDrag();
    s.DragFrom = Codes::FromTray;
    s.DragIdx = Integer(Index);
    announce(tr("Piece %1 lifted").arg(s.Pcs[Index].Home + 1));
}

void vxmain::startDrag()
{
    vxdrag->raise();
    vxdrag->show();
    // A piece the keys carry leaves the board its focus; the press guard refuses the pointer's lifts.
    if (!m_keyLift) {
        // The disabled board gives its keys away: they come back with the drop.
        m_keysOnBoard = vxrz->hasFocus();
        vxrz->setEnabled(false);
        for (int i = 0; i < m_state.GridN; ++i)
            vxpcs[i]->setEnabled(false);
        // Moves and the release reach the window wherever the pointer goes until the drop.
        m_client->grabMouse();
    }
    if (!findChild<QObject *>(QStringLiteral("pointerLossWatch"), Qt::FindDirectChildrenOnly))
        new PointerLossWatch(this, [this](QObject *window) {
            // The cast fails once the window is being destroyed (its hide then must not touch the game).
            if (qobject_cast<vxmain *>(window) && m_state.DragIdx >= 0)
                putBack(endDrag());
        });
}

int vxmain::endDrag()
{
    const int S = m_state.DragIdx;
    m_state.DragIdx = -1;
    if (QWidget::mouseGrabber() == m_client)
        m_client->releaseMouse();
    vxrz->setEnabled(true);
    vxdrag->hide();
    for (PictureBox *box : vxpcs)
        box->setEnabled(true);
    if (!m_keyLift && m_keysOnBoard)
        vxrz->setFocus(Qt::OtherFocusReason);
    m_keyLift = false;
    return S;
}

void vxmain::Form_MouseMove(float X, float Y)
{
    // Moving the drag box repaints only what it uncovers, never the whole board.
    if (m_state.DragIdx >= 0 && !m_keyLift)
        vxdrag->move(int(vb::roundHalfEven(X - 4)), int(vb::roundHalfEven(Y - 4)));
}

void vxmain::Form_MouseUp(float X, float Y)
{
    PuzzleState &s = m_state;
    if (s.DragIdx < 0 || m_keyLift)
        return;
    const int S = endDrag();
    std::vector<QRect> tray;
    for (int i = 0; i < s.GridN; ++i)
        tray.push_back(vxpcs[i]->geometry());
    finishDrop(findDropTarget(QPointF(X, Y), vxrz->geometry(), tray), S);
}

void vxmain::finishDrop(const DropTarget &target, int S)
{
    PuzzleState &s = m_state;
    const int piece = (s.DragFrom == Codes::FromTray ? s.Pcs[S] : s.Board[S]).Home + 1;
    s.PosX = Integer(target.point.x());
    s.PosY = Integer(target.point.y());
    if (target.kind == DropTarget::Board)
        dropOnBoard(target.point, S);
    else if (target.kind == DropTarget::Tray)
        dropOnTray(target.tray, S);
    else
        putBack(S);
    announce(
        (target.kind == DropTarget::Nowhere ? tr("Piece %1 put back") : tr("Piece %1 dropped")).arg(piece));
    if (s.InPlace == s.TileTotal)
        finishSolved();
}

void vxmain::putBack(int S)
{
    PuzzleState &s = m_state;
    if (s.DragFrom == Codes::FromTray) {
        vxpcs[S]->setPicture(*vxdrag);
        vxpcs[S]->repaint();
        outlineTrayBox(S);
        return;
    }
    s.Find_XY(Integer(S));
    bitBlt(*vxrz, s.PosX, s.PosY, s.TileW, s.TileH, *vxdrag, 0, 0);
    DrawLines();
}

void vxmain::dropOnBoard(const QPoint &point, int S)
{
    PuzzleState &s = m_state;
    const Integer T = placeAt(s, float(point.x() - vxrz->x()), float(point.y() - vxrz->y()));
    s.Find_XY(T);
    const TileRec target = s.Board[T];
    if (s.DragFrom == Codes::FromTray) {
        bitBlt(*vxrz, s.PosX, s.PosY, s.TileW + 1, s.TileH + 1, *vxrz_s, s.Pcs[S].SrcX, s.Pcs[S].SrcY);
        if (target.Home < 0)
            vxpcs[S]->clearPicture();
        else
            bitBlt(*vxpcs[S], 0, 0, s.TileW + 1, s.TileH + 1, *vxrz_s, target.SrcX, target.SrcY);
        outlineTrayBox(S);
        vxpcs[S]->repaint();
        exchangeHolders(s, { Holder::Tray, S }, { Holder::Board, T });
    } else {
        bitBlt(*vxrz, s.PosX, s.PosY, s.TileW + 1, s.TileH + 1, *vxrz_s, s.Board[S].SrcX, s.Board[S].SrcY);
        // The piece that stood on T goes to the place the dragged one came from; an empty T leaves
        // that place blank, as the lift drew it.
        if (target.Home >= 0) {
            s.Find_XY(Integer(S));
            bitBlt(*vxrz, s.PosX, s.PosY, s.TileW + 1, s.TileH + 1, *vxrz_s, target.SrcX, target.SrcY);
        }
        exchangeHolders(s, { Holder::Board, S }, { Holder::Board, T });
    }
    DrawLines();
}

void vxmain::dropOnTray(int k, int S)
{
    PuzzleState &s = m_state;
    if (s.DragFrom == Codes::FromTray) {
        vxpcs[S]->setPicture(*vxpcs[k]);
        vxpcs[S]->repaint();
        exchangeHolders(s, { Holder::Tray, S }, { Holder::Tray, k });
    } else {
        if (s.Pcs[k].Home >= 0) {
            s.Find_XY(Integer(S));
            bitBlt(*vxrz, s.PosX, s.PosY, s.TileW + 1, s.TileH + 1, *vxrz_s, s.Pcs[k].SrcX, s.Pcs[k].SrcY);
        }
        exchangeHolders(s, { Holder::Board, S }, { Holder::Tray, k });
        DrawLines();
    }
    bitBlt(*vxpcs[k], 0, 0, s.TileW + 1, s.TileH + 1, *vxdrag, 0, 0);
    outlineTrayBox(k);
    vxpcs[k]->repaint();
}

void vxmain::drawTrayHeld()
{
    const PuzzleState &s = m_state;
    if (s.PuzType != Codes::Drag || !s.InPlay)
        return;
    for (int i = 0; i < s.GridN; ++i) {
        if (s.Pcs[i].Home < 0)
            continue;
        bitBlt(*vxpcs[i], 0, 0, s.TileW, s.TileH, *vxrz_s, s.Pcs[i].SrcX, s.Pcs[i].SrcY);
        outlineTrayBox(i);
    }
}
