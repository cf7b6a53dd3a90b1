// Slide puzzles in the window: the scramble command, the slide moves, the solving move, and long play.
#include "game.h"
#include "platform/shapes.h"
#include "play/scramble.h"

#include <QRandomGenerator>
#include <QTest>
#include <numeric>

namespace
{
const TileRec Blank { 0, 0, -1 };

using How = std::pair<Qt::MouseButton, Qt::KeyboardModifiers>;

void press(vxmain &w, QPointF at, How how = { Qt::LeftButton, {} })
{
    w.vxrz_MouseDown(how.first, how.second, float(at.x()), float(at.y()));
}
QPointF centreOf(const PuzzleState &s, int p)
{
    return QPointF(p % s.GridN * s.TileW + s.TileW / 2, p / s.GridN * s.TileH + s.TileH / 2);
}
bool besides(const PuzzleState &s, int a, int b)
{
    return std::abs(a % s.GridN - b % s.GridN) + std::abs(a / s.GridN - b / s.GridN) == 1;
}
// Place p shows the tile (or the blank image) t.
bool shows(const vxmain &w, int p, const TileRec &t)
{
    const QRect r = interior(w.state(), p);
    return w.vxrz->image().copy(r) == expectedInside(w, t, r.size());
}
bool boardShowsTables(const vxmain &w)
{
    const PuzzleState &s = w.state();
    for (int p = 0; p < s.TileTotal; ++p)
        if (!shows(w, p, p == s.BlankPos ? Blank : s.Board[p]))
            return false;
    return true;
}
// Each tile on one place, the blank tile (the bottom-right one) at BlankPos, the spare record in place.
bool tablesHold(const PuzzleState &s)
{
    std::vector<int> homes(s.TileTotal), solved(s.TileTotal);
    std::iota(solved.begin(), solved.end(), 0);
    for (int p = 0; p < s.TileTotal; ++p)
        homes[p] = s.Board[p].Home;
    return std::is_permutation(homes.begin(), homes.end(), solved.begin())
        && int(s.Board.size()) == s.TileTotal + 1 && s.Board[s.TileTotal].Home == s.TileTotal
        && s.Board[s.BlankPos].Home == s.TileTotal - 1;
}
// The record of the tile whose home is h.
TileRec tile(const PuzzleState &s, int h)
{
    return { Integer(h % s.GridN * s.TileW), Integer(h / s.GridN * s.TileH), Integer(h) };
}
// A position far from solved with the blank on place b: the tiles in reverse order, the blank swapped
// onto b. The board keeps its old drawing.
void arrange(PuzzleState &s, int b)
{
    const int last = s.TileTotal - 1;
    for (int p = 0; p <= last; ++p)
        s.Board[p] = tile(s, p == b ? last : p == 0 ? last - b : last - p);
    s.BlankPos = Integer(b);
    s.InPlace = s.countInPlace();
}
void addSizes(std::initializer_list<int> sizes)
{
    QTest::addColumn<int>("n");
    for (int n : sizes)
        QTest::addRow("%dx%d", n, n) << n;
}
} // namespace

class SlideTest : public QObject
{
    Q_OBJECT
private slots:
    // Without a picture, or with the hint armed, the scramble command does nothing.
    void scrambleNeedsPictureAndNoHint()
    {
        Game bare, g;
        bare.w.cb_scramble_Click();
        QVERIFY(g.play(Codes::Slide, 4));
        g.s().HintMode = true;
        const QImage shown = g.w.vxrz->image();
        const qsizetype pointers = g.tp.pointers.history.size();
        g.w.cb_scramble_Click();
        QVERIFY(!bare.s().InPlay && bare.tp.pointers.history.isEmpty());
        QVERIFY(g.w.vxrz->image() == shown && g.tp.pointers.history.size() == pointers);
    }

    // With the blank on each place in turn, a press on every place: a direct neighbour of the blank
    // slides into it and back, with any button and modifier; any other place, the blank's included,
    // changes nothing. The board box's extra pixel column and row count as the last column and row (so
    // never as the next row's first place): last-column or last-row places are pressed there for
    // every other blank.
    void onlyTilesBesideTheBlankSlide_data()
    {
        addSizes({ 2, 3, 5, 11 });
    }
    void onlyTilesBesideTheBlankSlide()
    {
        QFETCH(int, n);
        Game g;
        QVERIFY(g.play(Codes::Slide, n, 1));
        vxmain &w = g.w;
        PuzzleState &s = g.s();
        const How hows[] = { { Qt::LeftButton, {} }, { Qt::RightButton, {} }, { Qt::MiddleButton, {} },
            { Qt::LeftButton, Qt::ShiftModifier | Qt::ControlModifier } };
        int k = 0;
        for (int b = 0; b < s.TileTotal; ++b) {
            arrange(s, b);
            for (int p = 0; p < s.TileTotal; ++p) {
                const auto board = s.Board;
                const QImage before = w.vxrz->image();
                QPointF at = centreOf(s, p);
                if (b % 2 == 0 && p % n == n - 1)
                    at.rx() = n * s.TileW;
                if (b % 2 == 0 && p / n == n - 1)
                    at.ry() = n * s.TileH;
                press(w, at, hows[k++ % 4]);
                if (!besides(s, p, b)) {
                    QVERIFY(s.Board == board && s.BlankPos == b && w.vxrz->image() == before);
                    continue;
                }
                QCOMPARE(s.BlankPos, Integer(p));
                QVERIFY(s.Board[b] == board[p] && s.Board[p] == board[b]);
                QCOMPARE(s.InPlace, s.countInPlace());
                // Only the two places change: the tile's image to b, the blank image to p.
                for (int q = 0; q < s.TileTotal; ++q) {
                    const QRect r = interior(s, q);
                    QVERIFY(q == b   ? shows(w, b, s.Board[b])
                            : q == p ? shows(w, p, Blank)
                                     : w.vxrz->image().copy(r) == before.copy(r));
                }
                press(w, centreOf(s, b));
                QVERIFY(s.BlankPos == b && s.Board == board);
            }
        }
        QVERIFY(s.InPlay);
    }

    // The move that restores the picture runs the frame animation once, shows the whole picture, its
    // bottom-right tile too, and ends play: later presses do nothing.
    void solvingMoveShowsWholePicture_data()
    {
        addSizes({ 2, 6, 11 });
    }
    void solvingMoveShowsWholePicture()
    {
        QFETCH(int, n);
        Game g;
        QVERIFY(g.play(Codes::Slide, n, 4));
        vxmain &w = g.w;
        PuzzleState &s = g.s();
        const qint64 ring = g.tp.events.sleptUs; // the load's animation, in virtual time
        QVERIFY(ring > 0 && !w.vxfr_t->isVisible());
        const int last = s.TileTotal - 1;
        for (int p = 0; p <= last; ++p)
            s.Board[p] = tile(s, p);
        std::swap(s.Board[last], s.Board[last - 1]);
        s.BlankPos = Integer(last - 1);
        s.InPlace = Integer(last - 1);

        press(w, centreOf(s, last));
        QVERIFY(s.InPlace == s.TileTotal && !s.InPlay);
        QCOMPARE(g.tp.events.sleptUs, 2 * ring);
        for (ShapeBox *bar : { w.vxfr_t, w.vxfr_b, w.vxfr_l, w.vxfr_r })
            QVERIFY(bar->isVisible());
        QVERIFY(w.vxrz->image() == w.vxrz_s->image());
        const auto board = s.Board;
        for (int p : { last, last - 1, last - n, 0 })
            press(w, centreOf(s, p));
        QVERIFY(s.Board == board && w.vxrz->image() == w.vxrz_s->image());
    }

    // The scramble draws the tables it makes from the seed, the blank image on BlankPos only, with the
    // frame bars gone, under the hourglass, holding input at each walk step. Then long random play keeps
    // the tables, their count of solved places and the board in step after every press.
    void scrambleAndLongPlayKeepBoardInStep_data()
    {
        addSizes({ 2, 3, 4, 5, 6, 7, 8, 9, 10, 11 });
    }
    void scrambleAndLongPlayKeepBoardInStep()
    {
        QFETCH(int, n);
        Game g;
        quint32 seed = 100;
        QVERIFY(g.play(Codes::Slide, n, seed));
        vxmain &w = g.w;
        const PuzzleState &s = g.s();
        PuzzleState expected = s;
        RandomSource random(seed);
        const ScrambleReport report = scrambleTables(expected, random, [] {});
        QVERIFY(s.Board == expected.Board && s.BlankPos == expected.BlankPos);
        QCOMPARE(g.tp.events.pumped, std::accumulate(report.walkSteps.begin(), report.walkSteps.end(), 0));
        QVERIFY(g.tp.events.heldInput);
        QCOMPARE(g.tp.pointers.history.mid(g.tp.pointers.history.size() - 2),
            (QList<PointerShape> { PointerShape::Hourglass, PointerShape::Default }));
        for (ShapeBox *bar : { w.vxfr_t, w.vxfr_b, w.vxfr_l, w.vxfr_r })
            QVERIFY(!bar->isVisible());

        QRandomGenerator rnd { quint32(n) };
        int moves = 0, solves = 0;
        for (int i = 0; i < 1500; ++i) {
            QVERIFY2(tablesHold(s) && boardShowsTables(w), qPrintable(QString::number(i)));
            // Half the presses aim at a tile beside the blank, the rest anywhere on the box.
            QPointF at(rnd.bounded(w.vxrz->width()), rnd.bounded(w.vxrz->height()));
            const int b = s.BlankPos, p = b + std::array { -1, 1, -n, n }[rnd.bounded(4)];
            if (i % 2 && p >= 0 && p < s.TileTotal && besides(s, p, b))
                at = QPointF(
                    p % n * s.TileW + rnd.bounded(int(s.TileW)), p / n * s.TileH + rnd.bounded(int(s.TileH)));
            press(w, at);
            moves += s.BlankPos != b;
            QCOMPARE(s.InPlace, s.countInPlace());
            if (!s.InPlay) {
                QVERIFY(s.InPlace == s.TileTotal && w.vxrz->image() == w.vxrz_s->image());
                ++solves;
                w.setRandomSeed(++seed);
                w.cb_scramble_Click();
            }
        }
        QVERIFY(moves > 300);
        QVERIFY(n > 2 || solves > 0); // 2 x 2 play comes round to the picture often
    }
};

QTEST_MAIN(SlideTest)
#include "tst_slide.moc"
