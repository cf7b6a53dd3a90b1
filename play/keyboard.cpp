// The drag puzzle from the keyboard: a cursor over the holders, the tray boxes standing as the board's last
// row, and Space or Enter that lift and drop through the pointer's own handlers; and what a screen reader
// is told of the holder under the cursor and of each move.
#include "app/vxmain.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"
#include "play/moves.h"

int vxmain::holderCount() const
{
    const PuzzleState &s = m_state;
    return s.TileTotal + (s.PuzType == Codes::Drag ? s.GridN : 0);
}

PictureBox *vxmain::holderBox(int h) const
{
    return h < m_state.TileTotal ? vxrz : vxpcs[h - m_state.TileTotal];
}

QRect vxmain::holderRect(int h) const
{
    const PuzzleState &s = m_state;
    if (h >= s.TileTotal)
        return QRect(0, 0, s.TileW, s.TileH);
    return QRect(h % s.GridN * s.TileW, h / s.GridN * s.TileH, s.TileW + 1, s.TileH + 1);
}

QString vxmain::holderName(int h) const
{
    const PuzzleState &s = m_state;
    const bool tray = h >= s.TileTotal;
    const TileRec &t = tray ? s.Pcs[h - s.TileTotal] : s.Board[h];
    const QString where = tray ? tr("Tray box %1").arg(h - s.TileTotal + 1)
                               : tr("Row %1, column %2").arg(h / s.GridN + 1).arg(h % s.GridN + 1);
    QString what;
    if (t.Home < 0 || (s.PuzType == Codes::Slide && h == s.BlankPos))
        what = tray ? tr("empty") : tr("blank");
    else
        what = t.Home == h ? tr("piece %1, in place").arg(t.Home + 1) : tr("piece %1").arg(t.Home + 1);
    return tr("%1: %2").arg(where, what);
}

bool vxmain::Form_KeyDown(int key)
{
    PuzzleState &s = m_state;
    int dc = 0, dr = 0;
    switch (key) {
    case Qt::Key_Left:
        dc = -1;
        break;
    case Qt::Key_Right:
        dc = 1;
        break;
    case Qt::Key_Up:
        dr = -1;
        break;
    case Qt::Key_Down:
        dr = 1;
        break;
    default:
        return false;
    }
    if (s.PuzType == Codes::Drag) {
        moveCursor(dc, dr);
        return true;
    }
    // Only where the mouse could press the board; the press itself applies every other guard.
    if (!vxrz->isVisible() || s.BlankPos < 0 || s.BlankPos >= s.TileTotal)
        return true;
    s.GetCRfromPos(s.BlankPos);
    const int col = s.PosCol + dc;
    const int row = s.PosRow + dr;
    if (col < 0 || row < 0 || col >= s.GridN || row >= s.GridN)
        return true;
    s.GetPosFromCR(Integer(col), Integer(row));
    s.Find_XY(s.CurPos);
    vxrz_MouseDown(Qt::NoButton, Qt::NoModifier, float(s.PosX + s.TileW / 2), float(s.PosY + s.TileH / 2));
    return true;
}

void vxmain::moveCursor(int dc, int dr)
{
    const PuzzleState &s = m_state;
    // Where the board could be pressed, or while the keys carry a piece; never over the pointer's piece.
    if (!vxrz->isVisible() || m_scrambling || s.PicFile.isEmpty() || !s.InPlay
        || (s.DragIdx >= 0 && !m_keyLift))
        return;
    const int n = s.GridN;
    if (m_cursor >= holderCount())
        m_cursor = 0;
    // The tray is row n; the cursor stops at the edges.
    const int col = std::clamp(m_cursor % n + dc, 0, n - 1);
    const int row = std::clamp(m_cursor / n + dr, 0, n);
    const bool moved = m_cursor != row * n + col || !m_cursorShown;
    m_cursor = row * n + col;
    m_cursorShown = true;
    vxrz->setFocus(Qt::OtherFocusReason);
    if (m_keyLift)
        placeDragImage();
    showCursor();
    if (moved)
        tellFocus(QAccessible::Focus);
}

void vxmain::resetCursor()
{
    m_cursor = 0;
    m_cursorShown = false;
    showCursor();
    vxrz->setFocus(Qt::OtherFocusReason);
    tellFocus(QAccessible::Focus);
}

void vxmain::showCursor()
{
    const PuzzleState &s = m_state;
    if (!m_cursorShown || !s.InPlay || s.PuzType != Codes::Drag || m_cursor >= holderCount()) {
        m_cursorBox->hide();
        return;
    }
    PictureBox *box = holderBox(m_cursor);
    if (m_cursorBox->parentWidget() != box)
        m_cursorBox->setParent(box);
    m_cursorBox->setGeometry(holderRect(m_cursor));
    m_cursorBox->raise();
    m_cursorBox->show();
}

void vxmain::placeDragImage()
{
    const PuzzleState &s = m_state;
    PictureBox *box = holderBox(m_cursor);
    vxdrag->move(box->pos() + holderRect(m_cursor).topLeft() + QPoint(s.TileW / 3, s.TileH / 3));
}

bool vxmain::boardKey(int key)
{
    PuzzleState &s = m_state;
    if (s.PuzType != Codes::Drag)
        return false;
    if (m_cursor >= holderCount())
        m_cursor = 0;
    const bool keysCarry = s.DragIdx >= 0 && m_keyLift;
    if (key == Qt::Key_Escape && keysCarry) {
        const int S = endDrag();
        finishDrop(DropTarget {}, S);
    }
    if (key == Qt::Key_Escape)
        return keysCarry;
    if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    if (keysCarry) {
        DropTarget target;
        target.kind = m_cursor < s.TileTotal ? DropTarget::Board : DropTarget::Tray;
        target.tray = m_cursor - s.TileTotal;
        target.point = holderBox(m_cursor)->pos() + holderRect(m_cursor).topLeft();
        const int S = endDrag();
        finishDrop(target, S);
        return true;
    }
    // A press in the middle of the holder, with every guard of a press; the pointer's piece is its own.
    const QPoint middle = holderRect(m_cursor).center();
    m_keyLift = s.DragIdx < 0;
    if (m_cursor < s.TileTotal)
        vxrz_MouseDown(Qt::NoButton, Qt::NoModifier, float(middle.x()), float(middle.y()));
    else
        vxpcs_MouseDown(
            m_cursor - s.TileTotal, Qt::NoButton, Qt::NoModifier, float(middle.x()), float(middle.y()));
    m_keyLift = s.DragIdx >= 0 && m_keyLift;
    if (m_keyLift)
        placeDragImage();
    return true;
}

void vxmain::tellFocus(QAccessible::Event what)
{
    if (!QAccessible::isActive() || m_cursor >= holderCount() || !vxrz->hasFocus())
        return;
    if (QAccessibleInterface *cell = QAccessible::queryAccessibleInterface(vxrz)->child(m_cursor)) {
        QAccessibleEvent event(cell, what);
        QAccessible::updateAccessibility(&event);
    }
}

void vxmain::announce(const QString &text)
{
    m_announcement = text;
    if (!QAccessible::isActive())
        return;
    // Qt before 6.8 has no announcement: the holder under the cursor describes what happened, and its
    // name, which the move may have changed, is read again.
    tellFocus(QAccessible::DescriptionChanged);
    tellFocus(QAccessible::NameChanged);
    QAccessibleEvent told(vxrz, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent spoken(vxrz, text);
    QAccessible::updateAccessibility(&spoken);
#endif
}
