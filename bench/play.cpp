// The play section: the 11 x 11 board's redraw, slide presses, scramble, and the drag puzzle's lift and
// drop, each beside its repaint or a plain QPainter redraw.
#include "app/vxmain.h"
#include "bench.h"
#include "platform/picturebox.h"

#include <QPainter>

namespace bench
{

void benchPlay(vxmain &w, const QString &picture)
{
    PuzzleState &s = w.state();
    s.setGridSize(11);
    s.PicFile = picture;
    w.LoadPic(QStringLiteral("Load"));
    w.setRandomSeed(5);
    const auto redraw = [&] {
        for (Integer i = 0; i < s.TileTotal; ++i) {
            s.Find_XY(i);
            bitBlt(*w.vxrz, s.PosX, s.PosY, s.TileW, s.TileH, *w.vxrz_s, s.Board[i].SrcX, s.Board[i].SrcY);
        }
        w.DrawLines();
    };
    // Baseline: one naive QPainter redraw of the same board (121 drawImage calls and 250 drawLine calls).
    const auto painterRedraw = [&] {
        QPainter p(&w.vxrz->image());
        for (Integer i = 0; i < s.TileTotal; ++i) {
            s.Find_XY(i);
            p.drawImage(QPoint(s.PosX, s.PosY), w.vxrz_s->image(),
                QRect(s.Board[i].SrcX, s.Board[i].SrcY, s.TileW, s.TileH));
        }
        p.setPen(Qt::white);
        for (int k = 0; k <= 11; ++k)
            for (int j = 0; j < 11; ++j) {
                p.drawLine(k * s.TileW, j * s.TileH, k * s.TileW, (j + 1) * s.TileH - 1);
                p.drawLine(j * s.TileW, k * s.TileH, (j + 1) * s.TileW - 1, k * s.TileH);
            }
    };
    // The board's tables are filled by the first scramble.
    const Pair scramble = paired(
        21, [&] { w.Scramble(); }, redraw);
    const Pair redraws = paired(101, redraw, painterRedraw);
    const auto repaint = [&] { w.vxrz->repaint(); };
    // A press beside the blank and back again, each followed by the board's repaint.
    w.Scramble();
    s.GetCRfromPos(s.BlankPos);
    const Integer col = s.PosCol > 0 ? Integer(s.PosCol - 1) : Integer(s.PosCol + 1);
    const Integer row0 = s.PosRow;
    const Pair press = paired(
        201,
        [&] {
            s.Find_XY(Integer(row0 * 11 + col));
            const int x = s.PosX + 3, y = s.PosY + 3;
            const Integer blank = s.BlankPos;
            w.vxrz_MouseDown(Qt::LeftButton, {}, float(x), float(y));
            w.vxrz->repaint();
            s.Find_XY(blank);
            w.vxrz_MouseDown(Qt::LeftButton, {}, float(s.PosX + 3), float(s.PosY + 3));
            w.vxrz->repaint();
        },
        repaint);
    add(QStringLiteral("full redraw of 11 x 11: 121 tiles + grid"), QStringLiteral("us"), redraws.ours,
        QStringLiteral("the same with QPainter"), redraws.base, { Target::ValueBelow, 250, "< 250 us" });
    add(QStringLiteral("slide press to board pixels, 2 presses"), QStringLiteral("us"), press.ours,
        QStringLiteral("board repaint alone"), press.base,
        { Target::ValueBelow, 1000, "< 1000 us (2 x 0.5 ms)" });
    add(QStringLiteral("scramble 11 x 11, without event processing"), QStringLiteral("us"), scramble.ours,
        QStringLiteral("full redraw"), scramble.base, { Target::ValueBelow, 20000, "< 20000 us" });

    // Type "D": a lift and a drop on another place, with their repaints.
    w.cb_type_Click();
    w.Scramble();
    const QPoint origin = w.vxrz->pos();
    const auto drop = [&] {
        w.vxrz_MouseDown(Qt::LeftButton, {}, 5, 5);
        w.Form_MouseUp(float(origin.x() + s.TileW * 3 + 9), float(origin.y() + 9));
        w.vxrz->repaint();
    };
    const Pair drops = paired(201, drop, repaint);
    const Pair moves = paired(
        201,
        [&] {
            w.vxrz_MouseDown(Qt::LeftButton, {}, 5, 5);
            for (int i = 0; i < 10; ++i)
                w.Form_MouseMove(float(origin.x() + 20 + i), float(origin.y() + 20));
            w.Form_MouseUp(float(origin.x() + 9), float(origin.y() + 9));
        },
        drop);
    add(QStringLiteral("lift + drop on the 11 x 11 board"), QStringLiteral("us"), drops.ours,
        QStringLiteral("board repaint alone"), drops.base, { Target::ValueBelow, 1000, "< 1000 us" });
    add(QStringLiteral("lift, 10 follows, drop back"), QStringLiteral("us"), moves.ours,
        QStringLiteral("lift + drop"), moves.base);
}

} // namespace bench
