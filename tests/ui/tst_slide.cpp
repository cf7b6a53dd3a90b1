// Slide puzzles in the window: the scramble command, the slide moves, the solving move, and long play.
#include "app/vxmain.h"
#include "doubles.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"
#include "play/scramble.h"
#include "tools/picturegen.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <numeric>

namespace
{
const QRgb BlankColour = qRgb(255, 192, 192);

struct Game {
    TestPlatform tp;
    std::unique_ptr<vxmain> w;
};

// The pixels of place p that the grid never covers.
QRect interior(const PuzzleState &s, int p)
{
    return QRect(p % s.GridN * s.TileW + 1, p / s.GridN * s.TileH + 1, s.TileW - 1, s.TileH - 1);
}
bool showsBlank(const vxmain &w, int p)
{
    const QRect r = interior(w.state(), p);
    QImage blank(r.size(), QImage::Format_RGB32);
    blank.fill(BlankColour);
    return w.vxrz->image().copy(r) == blank;
}
// Place p shows its tile's image from the whole picture.
bool showsTile(const vxmain &w, int p)
{
    const TileRec &t = w.state().Board[p];
    const QRect r = interior(w.state(), p);
    return w.vxrz->image().copy(r)
        == w.vxrz_s->image().copy(r.translated(t.SrcX - r.x() + 1, t.SrcY - r.y() + 1));
}
QPointF centreOf(const PuzzleState &s, int p)
{
    return QPointF(p % s.GridN * s.TileW + s.TileW / 2, p / s.GridN * s.TileH + s.TileH / 2);
}
void press(vxmain &w, QPointF at, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers mods = {})
{
    w.vxrz_MouseDown(button, mods, float(at.x()), float(at.y()));
}
bool besides(const PuzzleState &s, int a, int b)
{
    return std::abs(a % s.GridN - b % s.GridN) + std::abs(a / s.GridN - b / s.GridN) == 1;
}
// A play position far from solved with the blank on place b: the tiles in reverse order, the blank
// then swapped onto b.
void arrange(vxmain &w, int b)
{
    PuzzleState &s = w.state();
    s.redimBoard();
    const int last = s.TileTotal - 1;
    for (int p = 0; p <= last; ++p)
        s.Board[p].Home = Integer(last - p);
    s.Board[s.TileTotal].Home = s.TileTotal;
    std::swap(s.Board[0].Home, s.Board[b].Home);
    for (int p = 0; p <= last; ++p) {
        s.Find_XY(s.Board[p].Home);
        s.Board[p].SrcX = s.PosX;
        s.Board[p].SrcY = s.PosY;
    }
    s.BlankPos = Integer(b);
    s.InPlace = s.countInPlace();
}
// What every play position keeps: the count of solved places, each tile once, the blank at BlankPos.
void checkTables(const PuzzleState &s)
{
    QCOMPARE(int(s.Board.size()), s.TileTotal + 1);
    QCOMPARE(s.InPlace, s.countInPlace());
    std::vector<bool> seen(s.TileTotal);
    for (int p = 0; p < s.TileTotal; ++p) {
        const int h = s.Board[p].Home;
        QVERIFY(h >= 0 && h < s.TileTotal && !seen[h]);
        seen[h] = true;
    }
    QCOMPARE(s.Board[s.BlankPos].Home, Integer(s.TileTotal - 1));
    QCOMPARE(s.Board[s.TileTotal].Home, s.TileTotal);
}
} // namespace

class SlideTest : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;
    QString m_picture;

    // A window with the picture on a board of n x n tiles, scrambled from the seed when asked.
    std::unique_ptr<Game> game(int n, quint32 seed = 0)
    {
        auto g = std::make_unique<Game>();
        g->w = std::make_unique<vxmain>(g->tp.platform(), m_dir.path());
        g->w->show();
        g->w->state().setGridSize(Integer(n));
        g->w->state().PicFile = m_picture;
        if (!g->w->LoadPic(QStringLiteral("Load")))
            return nullptr;
        if (seed) {
            g->w->setRandomSeed(seed);
            g->w->cb_scramble_Click();
        }
        return g;
    }
    static void addSizes(std::initializer_list<int> sizes)
    {
        QTest::addColumn<int>("n");
        for (int n : sizes)
            QTest::addRow("%dx%d", n, n) << n;
    }

private slots:
    void initTestCase()
    {
        m_picture = m_dir.filePath(QStringLiteral("pattern.bmp"));
        QVERIFY(picturegen::pattern(QSize(520, 390), 3).save(m_picture, "BMP"));
    }

    // The scramble replaces the whole picture and its frame by the tables' tiles, with the blank image
    // on exactly one place, BlankPos; the walk lets events through once per step with input held, under
    // the hourglass.
    void scrambleDrawsTilesAndOneBlank_data()
    {
        addSizes({ 2, 3, 4, 5, 6, 7, 8, 9, 10, 11 });
    }
    void scrambleDrawsTilesAndOneBlank()
    {
        QFETCH(int, n);
        auto g = game(n);
        QVERIFY(g);
        vxmain &w = *g->w;
        QVERIFY(w.vxfr_t->isVisible() && w.vxfr_r->isVisible());
        PuzzleState expected = w.state();
        RandomSource random { quint32(n) };
        const ScrambleReport report = scrambleTables(expected, random, [] {});
        g->tp.pointers.history.clear();
        const int pumpedBefore = g->tp.events.pumped;

        w.setRandomSeed(quint32(n));
        w.cb_scramble_Click();
        const PuzzleState &s = w.state();
        QVERIFY(s.Board == expected.Board);
        QCOMPARE(s.BlankPos, expected.BlankPos);
        QVERIFY(s.InPlay);
        for (int p = 0; p < s.TileTotal; ++p) {
            QCOMPARE(showsBlank(w, p), p == s.BlankPos);
            if (p != s.BlankPos)
                QVERIFY2(showsTile(w, p), qPrintable(QString::number(p)));
        }
        for (ShapeBox *bar : { w.vxfr_t, w.vxfr_b, w.vxfr_l, w.vxfr_r })
            QVERIFY(!bar->isVisible());
        QCOMPARE(g->tp.events.pumped - pumpedBefore,
            std::accumulate(report.walkSteps.begin(), report.walkSteps.end(), 0));
        QVERIFY(g->tp.events.heldInput);
        QCOMPARE(
            g->tp.pointers.history, (QList<PointerShape> { PointerShape::Hourglass, PointerShape::Default }));
    }

    // Without a picture, or with the hint armed, the scramble command does nothing.
    void scrambleNeedsPictureAndNoHint()
    {
        Game bare;
        QTemporaryDir dir;
        bare.w = std::make_unique<vxmain>(bare.tp.platform(), dir.path());
        bare.w->show();
        const QImage empty = bare.w->vxrz->image();
        bare.w->cb_scramble_Click();
        QVERIFY(!bare.w->state().InPlay);
        QCOMPARE(bare.w->vxrz->image(), empty);
        QCOMPARE(bare.tp.events.pumped, 0);
        QVERIFY(bare.tp.pointers.history.isEmpty());

        auto g = game(4);
        QVERIFY(g);
        g->w->state().HintMode = true;
        const QImage whole = g->w->vxrz->image();
        const auto board = g->w->state().Board;
        g->tp.pointers.history.clear();
        g->w->cb_scramble_Click();
        QVERIFY(!g->w->state().InPlay);
        QVERIFY(g->w->state().Board == board);
        QCOMPARE(g->w->vxrz->image(), whole);
        QVERIFY(g->tp.pointers.history.isEmpty());
    }

    // With the blank on every place in turn, a press on each place: the four direct neighbours slide
    // into the blank (and slide back), any other place, the blank included, changes nothing.
    void onlyTilesBesideTheBlankSlide_data()
    {
        addSizes({ 2, 3, 5, 11 });
    }
    void onlyTilesBesideTheBlankSlide()
    {
        QFETCH(int, n);
        auto g = game(n, 1);
        QVERIFY(g);
        vxmain &w = *g->w;
        PuzzleState &s = w.state();
        for (int b = 0; b < s.TileTotal; ++b) {
            arrange(w, b);
            for (int p = 0; p < s.TileTotal; ++p) {
                const auto board = s.Board;
                const QImage before = w.vxrz->image();
                press(w, centreOf(s, p));
                if (!besides(s, p, b)) {
                    QVERIFY(s.Board == board);
                    QCOMPARE(s.BlankPos, Integer(b));
                    QVERIFY(w.vxrz->image() == before);
                    continue;
                }
                QCOMPARE(s.BlankPos, Integer(p));
                QVERIFY(s.Board[b] == board[p] && s.Board[p] == board[b]);
                QCOMPARE(s.InPlace, s.countInPlace());
                QVERIFY(showsTile(w, b));
                QVERIFY(showsBlank(w, p));
                for (int q = 0; q < s.TileTotal; ++q)
                    if (q != p && q != b)
                        QVERIFY(w.vxrz->image().copy(interior(s, q)) == before.copy(interior(s, q)));
                press(w, centreOf(s, b));
                QCOMPARE(s.BlankPos, Integer(b));
                QVERIFY(s.Board == board);
            }
        }
        QVERIFY(s.InPlay);
    }

    // Every mouse button and modifier slides alike.
    void everyButtonSlides()
    {
        auto g = game(3, 2);
        QVERIFY(g);
        const std::pair<Qt::MouseButton, Qt::KeyboardModifiers> presses[]
            = { { Qt::LeftButton, {} }, { Qt::RightButton, {} }, { Qt::MiddleButton, {} },
                  { Qt::LeftButton, Qt::ShiftModifier | Qt::ControlModifier } };
        for (const auto &[button, mods] : presses) {
            arrange(*g->w, 4);
            press(*g->w, centreOf(g->w->state(), 1), button, mods);
            QCOMPARE(g->w->state().BlankPos, Integer(1));
        }
    }

    // The board box's extra pixel column and row count as the last column and row: a press there never
    // reaches the next row's first place or a place off the board.
    void lastPixelColumnAndRowCountAsLast_data()
    {
        // The pressed column and row on a 4 x 4 board; 4 stands for the extra pixel line.
        QTest::addColumn<int>("blank");
        QTest::addColumn<QPoint>("pressed");
        QTest::addColumn<int>("blankAfter");
        QTest::newRow("column beside blank") << 2 << QPoint(4, 0) << 3;
        QTest::newRow("column, not the next row") << 5 << QPoint(4, 0) << 5;
        QTest::newRow("row beside blank") << 11 << QPoint(3, 4) << 15;
        QTest::newRow("corner") << 14 << QPoint(4, 4) << 15;
        QTest::newRow("corner on the blank") << 15 << QPoint(4, 4) << 15;
    }
    void lastPixelColumnAndRowCountAsLast()
    {
        QFETCH(int, blank);
        QFETCH(QPoint, pressed);
        QFETCH(int, blankAfter);
        auto g = game(4, 3);
        QVERIFY(g);
        const PuzzleState &s = g->w->state();
        arrange(*g->w, blank);
        auto pixel = [](int k, int side) { return k == 4 ? 4 * side : k * side + side / 2; };
        press(*g->w, QPointF(pixel(pressed.x(), s.TileW), pixel(pressed.y(), s.TileH)));
        QCOMPARE(s.BlankPos, Integer(blankAfter));
        checkTables(s);
    }

    // The move that restores the picture runs the frame, shows the whole picture with no blank, and
    // ends play: later presses do nothing.
    void solvingMoveShowsWholePicture_data()
    {
        addSizes({ 2, 6, 11 });
    }
    void solvingMoveShowsWholePicture()
    {
        QFETCH(int, n);
        auto g = game(n, 4);
        QVERIFY(g);
        vxmain &w = *g->w;
        PuzzleState &s = w.state();
        const int last = s.TileTotal - 1;
        for (int p = 0; p <= last; ++p)
            s.Board[p] = TileRec { Integer(p % n * s.TileW), Integer(p / n * s.TileH), Integer(p) };
        std::swap(s.Board[last], s.Board[last - 1]);
        s.BlankPos = Integer(last - 1);
        s.InPlace = Integer(last - 1);
        QVERIFY(!w.vxfr_t->isVisible());

        press(w, centreOf(s, last));
        QCOMPARE(s.InPlace, s.TileTotal);
        QVERIFY(!s.InPlay);
        for (ShapeBox *bar : { w.vxfr_t, w.vxfr_b, w.vxfr_l, w.vxfr_r })
            QVERIFY(bar->isVisible());
        const QRect tiles(0, 0, n * s.TileW, n * s.TileH);
        QVERIFY(w.vxrz->image().copy(tiles) == w.vxrz_s->image().copy(tiles));

        const auto board = s.Board;
        const QImage whole = w.vxrz->image();
        for (int p : { last, last - 1, last - n, 0 }) {
            press(w, centreOf(s, p));
            QVERIFY(s.Board == board);
            QVERIFY(w.vxrz->image() == whole);
        }
    }

    // Long random play on every size keeps the tables and the board in step after every press.
    void randomPlayKeepsTablesConsistent_data()
    {
        addSizes({ 2, 3, 4, 5, 6, 7, 8, 9, 10, 11 });
    }
    void randomPlayKeepsTablesConsistent()
    {
        QFETCH(int, n);
        quint32 seed = 100;
        auto g = game(n, seed);
        QVERIFY(g);
        vxmain &w = *g->w;
        const PuzzleState &s = w.state();
        QRandomGenerator rnd { quint32(n) };
        int moves = 0, solves = 0;
        for (int i = 0; i < 1500; ++i) {
            // Half the presses aim at a tile beside the blank, the rest anywhere on the box.
            QPointF at(rnd.bounded(w.vxrz->width()), rnd.bounded(w.vxrz->height()));
            if (i % 2) {
                const int b = s.BlankPos;
                const int p = b + std::array { -1, 1, -n, n }[rnd.bounded(4)];
                if (p >= 0 && p < s.TileTotal && besides(s, p, b))
                    at = centreOf(s, p)
                        + QPointF(
                            rnd.bounded(int(s.TileW)) - s.TileW / 2, rnd.bounded(int(s.TileH)) - s.TileH / 2);
            }
            const Integer blank = s.BlankPos;
            press(w, at);
            moves += s.BlankPos != blank;
            checkTables(s);
            if (QTest::currentTestFailed())
                return;
            if (!s.InPlay) {
                QCOMPARE(s.InPlace, s.TileTotal);
                QVERIFY(w.vxrz->image() == w.vxrz_s->image());
                ++solves;
                w.setRandomSeed(++seed);
                w.cb_scramble_Click();
                continue;
            }
            for (int p = 0; p < s.TileTotal; ++p)
                QVERIFY(p == s.BlankPos ? showsBlank(w, p) : showsTile(w, p));
        }
        QVERIFY(moves > 300);
        if (n == 2)
            QVERIFY(solves > 0); // 2 x 2 play comes round to the picture often
    }
};

QTEST_MAIN(SlideTest)
#include "tst_slide.moc"
