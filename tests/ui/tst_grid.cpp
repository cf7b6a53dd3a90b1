// The grid over the board: dotted between tiles that already fit as in the picture, solid elsewhere,
// and the grid colour button.
#include "app/vxmain.h"
#include "doubles.h"
#include "platform/facebutton.h"
#include "platform/picturebox.h"
#include "tools/picturegen.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

namespace
{
enum class Style { Missing, Dotted, Solid };

// One boundary of the grid: a line of len pixels from `from`, rightwards or downwards. Inner lines lie
// between the places a (left or above) and b.
struct Segment {
    QPoint from;
    bool vertical;
    int len;
    int a = -1, b = -1;
    bool inner() const
    {
        return a >= 0;
    }
};

QList<Segment> segmentsOf(const PuzzleState &s)
{
    const int N = s.GridN, W = s.TileW, H = s.TileH;
    QList<Segment> list;
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c) {
            const int p = r * N + c;
            if (c > 0)
                list.append({ { c * W, r * H }, true, H, p - 1, p });
            if (r > 0)
                list.append({ { c * W, r * H }, false, W, p - N, p });
        }
    for (int k = 0; k < N; ++k) {
        list.append({ { N * W, k * H }, true, H }); // right border
        list.append({ { k * W, N * H }, false, W }); // bottom border
    }
    list.append({ { 0, 0 }, false, N * W + 1 }); // top, the whole box
    list.append({ { 0, 0 }, true, N * H + 1 }); // left, the whole box
    return list;
}

// Solid: every pixel in the colour; dotted: two on, two off from the start, where an off pixel shows
// what lies beneath (so not all of them may be in the colour).
Style styleOf(const QImage &img, const Segment &g, QRgb colour)
{
    int on = 0, offInColour = 0, offs = 0;
    bool patternHolds = true;
    for (int i = 0; i < g.len; ++i) {
        const QPoint p = g.from + (g.vertical ? QPoint(0, i) : QPoint(i, 0));
        const bool inColour = img.pixel(p) == (colour | 0xFF000000u);
        on += inColour;
        if (i & 2) {
            ++offs;
            offInColour += inColour;
        } else if (!inColour)
            patternHolds = false;
    }
    if (on == g.len)
        return Style::Solid;
    return patternHolds && offInColour < offs ? Style::Dotted : Style::Missing;
}

// The tile at a fits the tile at b (right of it or below it) as they stand in the picture.
bool fits(const PuzzleState &s, const Segment &g)
{
    const int N = s.GridN, ha = s.Board[g.a].Home, hb = s.Board[g.b].Home;
    return g.vertical ? ha % N + 1 == hb % N && ha / N == hb / N : ha / N + 1 == hb / N && ha % N == hb % N;
}

const char *nameOf(Style s)
{
    return s == Style::Solid ? "solid" : s == Style::Dotted ? "dotted" : "missing";
}
char *toString(Style s)
{
    return qstrdup(nameOf(s));
}

// Every boundary of the board is drawn in the colour, in the style that want gives it.
void checkGrid(const vxmain &w, QRgb colour, const std::function<Style(const Segment &)> &want)
{
    for (const Segment &seg : segmentsOf(w.state())) {
        const Style got = styleOf(w.vxrz->image(), seg, colour), expected = want(seg);
        QVERIFY2(got == expected,
            qPrintable(QStringLiteral("%1 line at (%2, %3) is %4, not %5")
                           .arg(seg.vertical ? "vertical" : "horizontal")
                           .arg(seg.from.x())
                           .arg(seg.from.y())
                           .arg(nameOf(got), nameOf(expected))));
    }
}

// Dotted exactly where the two tiles fit.
Style asTheyFit(const PuzzleState &s, const Segment &seg)
{
    return seg.inner() && fits(s, seg) ? Style::Dotted : Style::Solid;
}

struct Game {
    TestPlatform tp;
    std::unique_ptr<vxmain> w;
};
} // namespace

class GridTest : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;
    QString m_picture;

    // A window with the picture on a board of n x n tiles.
    std::unique_ptr<Game> game(int n, const QString &type = Codes::Slide)
    {
        auto g = std::make_unique<Game>();
        g->w = std::make_unique<vxmain>(g->tp.platform(), m_dir.path());
        g->w->show();
        PuzzleState &s = g->w->state();
        s.PuzType = type;
        s.setGridSize(Integer(n));
        s.PicFile = m_picture;
        if (!g->w->LoadPic(QStringLiteral("Load")))
            return nullptr;
        return g;
    }
    // The board drawn afresh from the picture and the grid drawn over it for the arrangement given.
    static void drawArrangement(vxmain &w, const std::function<int(int)> &homeOf)
    {
        PuzzleState &s = w.state();
        s.redimBoard();
        for (int p = 0; p < s.TileTotal; ++p)
            s.Board[p].Home = Integer(homeOf(p));
        s.InPlay = true;
        w.vxrz->setPicture(w.vxrz_s->image());
        w.DrawLines();
    }
    static void addSizes()
    {
        QTest::addColumn<int>("n");
        for (int n = Codes::MinGrid; n <= Codes::MaxGrid; ++n)
            QTest::addRow("%dx%d", n, n) << n;
    }

private slots:
    void initTestCase()
    {
        m_picture = m_dir.filePath(QStringLiteral("scene.bmp"));
        QVERIFY(picturegen::scene(QSize(520, 390), 11).save(m_picture, "BMP"));
    }

    // A solved board shows dotted lines between all its tiles and a solid border.
    void solvedBoardHasDottedInnerLines_data()
    {
        addSizes();
    }
    void solvedBoardHasDottedInnerLines()
    {
        QFETCH(int, n);
        auto g = game(n);
        QVERIFY(g);
        drawArrangement(*g->w, [](int p) { return p; });
        checkGrid(
            *g->w, 0xFFFFFF, [](const Segment &seg) { return seg.inner() ? Style::Dotted : Style::Solid; });
    }

    // Where no two neighbours fit, every line is solid.
    void boardWhereNothingFitsIsAllSolid()
    {
        for (int n : { 2, 5, 11 }) {
            auto g = game(n);
            QVERIFY(g);
            const int last = n * n - 1;
            drawArrangement(*g->w, [last](int p) { return last - p; });
            checkGrid(*g->w, 0xFFFFFF, [](const Segment &) { return Style::Solid; });
        }
    }

    // A pair fits only in the direction in which it lies in the picture: the upper-left tile with its
    // right neighbour to its right, with its lower neighbour below it.
    void neighboursFitOnlyAsInThePicture_data()
    {
        QTest::addColumn<int>("rightHome");
        QTest::addColumn<int>("belowHome");
        QTest::addColumn<Style>("right");
        QTest::addColumn<Style>("below");
        QTest::newRow("as in the picture") << 1 << 4 << Style::Dotted << Style::Dotted;
        QTest::newRow("right neighbour below") << 5 << 1 << Style::Solid << Style::Solid;
        QTest::newRow("lower neighbour right") << 4 << 8 << Style::Solid << Style::Solid;
    }
    void neighboursFitOnlyAsInThePicture()
    {
        QFETCH(int, rightHome);
        QFETCH(int, belowHome);
        QFETCH(Style, right);
        QFETCH(Style, below);
        auto g = game(4);
        QVERIFY(g);
        // Reversed, so nothing else fits, then the three tiles put in place.
        std::vector<int> homes(16);
        for (int p = 0; p < 16; ++p)
            homes[p] = 15 - p;
        auto put = [&](int p, int h) { std::swap(homes[p], *std::find(homes.begin(), homes.end(), h)); };
        put(0, 0);
        put(1, rightHome);
        put(4, belowHome);
        drawArrangement(*g->w, [&](int p) { return homes[p]; });
        const PuzzleState &s = g->w->state();
        const QImage &img = g->w->vxrz->image();
        QCOMPARE(styleOf(img, { { s.TileW, 0 }, true, s.TileH, 0, 1 }, 0xFFFFFF), right);
        QCOMPARE(styleOf(img, { { 0, s.TileH }, false, s.TileW, 0, 4 }, 0xFFFFFF), below);
    }

    // After a scramble and after every slide each boundary is drawn, in the style its two tiles call
    // for; on 2 x 2 that is the four inner segments, the right and bottom borders in two pieces each,
    // and the top and left.
    void everyBoundaryFollowsItsTiles_data()
    {
        QTest::addColumn<int>("n");
        QTest::addColumn<QString>("type");
        for (int n = Codes::MinGrid; n <= Codes::MaxGrid; ++n)
            QTest::addRow("S %dx%d", n, n) << n << Codes::Slide;
        for (int n : { 2, 6, 11 })
            QTest::addRow("D %dx%d", n, n) << n << Codes::Drag;
    }
    void everyBoundaryFollowsItsTiles()
    {
        QFETCH(int, n);
        QFETCH(QString, type);
        auto g = game(n, type);
        QVERIFY(g);
        int dotted = 0;
        QRandomGenerator rnd { quint32(n) };
        vxmain &w = *g->w;
        const PuzzleState &s = w.state();
        auto check = [&] {
            checkGrid(w, 0xFFFFFF, [&](const Segment &seg) {
                dotted += asTheyFit(s, seg) == Style::Dotted;
                return asTheyFit(s, seg);
            });
        };
        for (quint32 seed : { 1u, 2u, 3u }) {
            w.setRandomSeed(seed);
            w.cb_scramble_Click();
            check();
            // Slides redraw the lines round the two places they change.
            for (int i = 0; i < 40 && type == Codes::Slide && s.InPlay; ++i) {
                const int b = s.BlankPos, c = b % n + int(rnd.bounded(3)) - 1,
                          r = b / n + int(rnd.bounded(3)) - 1;
                if (c < 0 || r < 0 || c >= n || r >= n || (c != b % n && r != b / n))
                    continue;
                w.vxrz_MouseDown(Qt::LeftButton, {}, float(c * s.TileW + 1), float(r * s.TileH + 1));
                if (s.InPlay) // a solved board shows the whole picture without a grid
                    check();
            }
        }
        if (n >= 4)
            QVERIFY(dotted > 0); // the scrambles leave some pairs joined
    }

    // The button toggles colour, Tag and face together and outlines the tray boxes in use; without a
    // puzzle in play the board keeps its lines.
    void gridButtonTogglesColourAndTray()
    {
        Game g;
        QTemporaryDir dir;
        g.w = std::make_unique<vxmain>(g.tp.platform(), dir.path());
        g.w->show();
        vxmain &w = *g.w;
        const PuzzleState &s = w.state();
        const QImage board = w.vxrz->image();
        const QImage spareTray = w.vxpcs[s.GridN]->image();
        const struct {
            QString tag;
            Long colour;
            QString face;
        } states[] = { { Codes::Black, 0, "cb_grid_b.svg" }, { Codes::White, 0xFFFFFF, "cb_grid_w.svg" } };
        QCOMPARE(w.cb_grid->Tag, Codes::White);
        QVERIFY(w.cb_grid->face().endsWith("cb_grid_w.svg"));
        for (const auto &next : states) {
            w.cb_grid_Click();
            QCOMPARE(w.cb_grid->Tag, next.tag);
            QCOMPARE(s.GridColor, next.colour);
            QVERIFY2(w.cb_grid->face().endsWith(next.face), qPrintable(w.cb_grid->face()));
            const QRgb c = fromBgr(next.colour);
            for (int i = 0; i < s.GridN; ++i) {
                const QImage &tray = w.vxpcs[i]->image();
                for (QPoint p : { QPoint(0, 0), QPoint(s.TileW - 1, 0), QPoint(0, s.TileH - 1),
                         QPoint(s.TileW - 1, s.TileH - 1), QPoint(s.TileW / 2, s.TileH - 1) })
                    QCOMPARE(tray.pixel(p), c);
            }
            QCOMPARE(w.vxpcs[s.GridN]->image(), spareTray);
            QCOMPARE(w.vxrz->image(), board);
        }
    }

    // With a puzzle in play the board's lines take the new colour at once; before it, they wait.
    void gridButtonRedrawsBoardInPlay()
    {
        auto g = game(3);
        QVERIFY(g);
        vxmain &w = *g->w;
        const QImage whole = w.vxrz->image();
        w.cb_grid_Click();
        QCOMPARE(w.vxrz->image(), whole);
        w.cb_grid_Click();
        w.setRandomSeed(5);
        w.cb_scramble_Click();
        w.cb_grid_Click();
        checkGrid(w, 0, [&](const Segment &seg) { return asTheyFit(w.state(), seg); });
    }

    // While the hint is armed the button does nothing at all.
    void gridButtonIgnoredWhileHintArmed()
    {
        auto g = game(4);
        QVERIFY(g);
        vxmain &w = *g->w;
        w.setRandomSeed(9);
        w.cb_scramble_Click();
        w.state().HintMode = true;
        const QImage board = w.vxrz->image(), tray = w.vxpcs[0]->image();
        const QString face = w.cb_grid->face();
        w.cb_grid_Click();
        QCOMPARE(w.cb_grid->Tag, Codes::White);
        QCOMPARE(w.state().GridColor, Long(0xFFFFFF));
        QCOMPARE(w.cb_grid->face(), face);
        QCOMPARE(w.vxrz->image(), board);
        QCOMPARE(w.vxpcs[0]->image(), tray);
    }
};

QTEST_MAIN(GridTest)
#include "tst_grid.moc"
