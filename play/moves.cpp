// Move rules, independent of drawing.
#include "play/moves.h"

Integer placeAt(PuzzleState &s, float x, float y)
{
    const float lastX = float(s.TileW * s.GridN - 1);
    const float lastY = float(s.TileH * s.GridN - 1);
    s.FindPos(std::clamp(x, 0.0f, lastX), std::clamp(y, 0.0f, lastY));
    return s.CurPos;
}

Integer blankBeside(PuzzleState &s, Integer P)
{
    s.GetCRfromPos(P);
    const Integer col = s.PosCol;
    const Integer row = s.PosRow;
    Integer Q = -1;
    auto test = [&](Integer c, Integer r) {
        s.GetPosFromCR(c, r);
        if (s.CurPos == s.BlankPos)
            Q = s.CurPos;
    };
    if (col > 0)
        test(col - 1, row);
    if (col < s.GridN - 1)
        test(col + 1, row);
    if (row > 0)
        test(col, row - 1);
    if (row < s.GridN - 1)
        test(col, row + 1);
    return Q;
}

void slideTile(PuzzleState &s, Integer P, Integer Q)
{
    s.BlankPos = P;
    exchangeHolders(s, { Holder::Board, Q }, { Holder::Board, P });
}

TileRec &recordOf(PuzzleState &s, Holder h)
{
    return h.kind == Holder::Board ? s.Board[h.index] : s.Pcs[h.index];
}

void exchangeHolders(PuzzleState &s, Holder from, Holder to)
{
    auto solved = [&](Holder h) { return h.kind == Holder::Board && s.Board[h.index].Home == h.index; };
    // Counted before and after for each board place, so a drop on its own place changes nothing.
    s.InPlace = Integer(s.InPlace - solved(to) - solved(from));
    s.TmpTile = recordOf(s, to);
    recordOf(s, to) = recordOf(s, from);
    recordOf(s, from) = s.TmpTile;
    s.InPlace = Integer(s.InPlace + solved(to) + solved(from));
}

DropTarget findDropTarget(QPointF pointer, const QRect &board, std::span<const QRect> trayBoxes)
{
    DropTarget t;
    t.point = QPoint(int(vb::roundHalfEven(pointer.x() - 4)), int(vb::roundHalfEven(pointer.y() - 4)));
    // Half-open ranges: the first pixel outside a box is outside it.
    auto inside = [&](const QRect &r) {
        return r.x() <= t.point.x() && t.point.x() < r.x() + r.width() && r.y() <= t.point.y()
            && t.point.y() < r.y() + r.height();
    };
    if (inside(board)) {
        t.kind = DropTarget::Board;
        return t;
    }
    for (std::size_t i = 0; i < trayBoxes.size(); ++i)
        if (inside(trayBoxes[i])) {
            t.kind = DropTarget::Tray;
            t.tray = int(i);
            return t;
        }
    return t;
}
