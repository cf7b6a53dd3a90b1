// Play on the board: the grid over the tiles (dotted between tiles that already fit as in the picture,
// solid elsewhere, in the colour its button toggles), the slide moves, the solving move and long play.
#include "game.h"
#include "platform/facebutton.h"
#include "platform/shapes.h"
#include "play/scramble.h"

#include <QRandomGenerator>
#include <QTest>
#include <numeric>

namespace
{
const QRgb White = qRgb(255, 255, 255), Black = qRgb(0, 0, 0);

// One boundary: len pixels from `from`, rightwards or downwards; an inner one lies between the places
// a (left or above) and b.
struct Segment {
    QPoint from;
    bool vertical;
    int len;
    int a = -1, b = -1;
};

// Every boundary: each place's left and upper inner line, the right and bottom borders tile by tile,
// and the top and left across the whole box (on 2 x 2: 4 inner lines, 2 + 2 border pieces, 2 sides).
QList<Segment> segmentsOf(const PuzzleState &s)
{
    const int N = s.GridN, W = s.TileW, H = s.TileH;
    QList<Segment> list;
    for (int p = 0; p < N * N; ++p) {
        const int r = p / N, c = p % N;
        if (c > 0)
            list.append({ { c * W, r * H }, true, H, p - 1, p });
        if (r > 0)
            list.append({ { c * W, r * H }, false, W, p - N, p });
    }
    for (int k = 0; k < N; ++k) {
        list.append({ { N * W, k * H }, true, H });
        list.append({ { k * W, N * H }, false, W });
    }
    list.append({ { 0, 0 }, false, N * W + 1 });
    list.append({ { 0, 0 }, true, N * H + 1 });
    return list;
}

// How the board draws each boundary, a letter each: 'S' solid, every pixel in the colour; 'D' dotted,
// two pixels on and two off from its start, an off pixel showing what lies beneath; '-' neither.
QString drawn(const vxmain &w, QRgb colour)
{
    QString out;
    for (const Segment &g : segmentsOf(w.state())) {
        int on = 0;
        bool pattern = true;
        for (int i = 0; i < g.len; ++i) {
            const bool in
                = w.vxrz->image().pixel(g.from + (g.vertical ? QPoint(0, i) : QPoint(i, 0))) == colour;
            on += in;
            pattern = pattern && (in || (i & 2));
        }
        out += on == g.len ? 'S' : pattern ? 'D' : '-';
    }
    return out;
}

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
void addSizes(std::initializer_list<int> sizes)
{
    QTest::addColumn<int>("n");
    for (int n : sizes)
        QTest::addRow("%dx%d", n, n) << n;
}
} // namespace

class PlayTest : public QObject
{
    Q_OBJECT
private slots:
    void linesDottedExactlyWhereTilesFit_data()
    {
        QTest::addColumn<int>("n");
        QTest::addColumn<QString>("order");
        for (const char *order : { "solved", "reversed", "transposed" })
            for (int n : { 2, 5, 11 })
                QTest::addRow("%s %dx%d", order, n, n) << n << QString::fromLatin1(order);
    }
    // Solved: every inner line dotted, the border solid. Reversed: nothing fits, all solid. Transposed:
    // each pair are picture neighbours standing in the other direction (side by side in the picture, one
    // above the other on the board, and the reverse), so all solid.
    void linesDottedExactlyWhereTilesFit()
    {
        QFETCH(int, n);
        QFETCH(QString, order);
        Game g;
        QVERIFY(g.play(Codes::Slide, n));
        PuzzleState &s = g.s();
        for (int p = 0; p < n * n; ++p)
            s.Board[p].Home = Integer(order == "solved" ? p
                    : order == "reversed"               ? n * n - 1 - p
                                                        : p % n * n + p / n);
        g.w.vxrz->setPicture(g.w.vxrz_s->image());
        g.w.DrawLines();
        QString want;
        for (const Segment &seg : segmentsOf(s))
            want += seg.a >= 0 && order == "solved" ? 'D' : 'S';
        QCOMPARE(drawn(g.w, White), want);
    }

    // The button toggles white and black with its Tag and face and outlines the tray boxes in use; the
    // board's lines take the colour only while a puzzle is in play.
    void gridButtonTogglesColour()
    {
        Game g;
        vxmain &w = g.w;
        const PuzzleState &s = g.s();
        QVERIFY(g.load(g.picture("pic.bmp", picturegen::scene(QSize(520, 390), 3))));
        const QImage whole = w.vxrz->image(), spare = w.vxpcs[s.GridN]->image();
        for (int k = 0; k < 3; ++k) {
            const bool black = k != 1, inPlay = k == 2;
            if (inPlay)
                w.cb_scramble_Click();
            w.cb_grid_Click();
            QCOMPARE(w.cb_grid->Tag, black ? Codes::Black : Codes::White);
            QCOMPARE(fromBgr(s.GridColor), black ? Black : White);
            QVERIFY(w.cb_grid->face().endsWith(black ? "cb_grid_b.svg" : "cb_grid_w.svg"));
            for (int i = 0; i < s.GridN; ++i)
                QVERIFY(w.vxpcs[i]->image().pixel(s.TileW - 1, s.TileH / 2) == fromBgr(s.GridColor)
                    && w.vxpcs[i]->image().pixel(s.TileW / 2, s.TileH - 1) == fromBgr(s.GridColor));
            QVERIFY(w.vxpcs[s.GridN]->image() == spare);
            QVERIFY(inPlay ? !drawn(w, Black).contains('-') : w.vxrz->image() == whole);
        }
    }

    // The scramble draws the tables it makes from the seed, the blank image on BlankPos only, with the
    // frame bars gone, under the hourglass, holding input at each walk step. Then long random play with
    // any button: a press slides the pressed tile only when it stands beside the blank and the board shows
    // the tables (their soundness is the soak's to check); the solving move shows the picture.
    void scrambleAndLongPlayKeepBoardInStep_data()
    {
        addSizes({ 2, 6, 11 });
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

        const How hows[] = { { Qt::LeftButton, {} }, { Qt::RightButton, {} }, { Qt::MiddleButton, {} },
            { Qt::LeftButton, Qt::ShiftModifier | Qt::ControlModifier } };
        const qint64 ring = g.tp.events.sleptUs; // the load's frame animation, in virtual time
        QRandomGenerator rnd { quint32(n) };
        int moves = 0, solves = 0;
        for (int i = 0; i < 1500; ++i) {
            QVERIFY2(holdersShowTables(w), qPrintable(QString::number(i)));
            // Half the presses aim at a tile beside the blank, the rest anywhere on the box; every fourth
            // lies on the box's extra pixel column or row, which belongs to the last column or row.
            QPoint at(rnd.bounded(w.vxrz->width()), rnd.bounded(w.vxrz->height()));
            const int b = s.BlankPos, p = b + std::array { -1, 1, -n, n }[rnd.bounded(4)];
            if (i % 2 && p >= 0 && p < s.TileTotal && besides(s, p, b))
                at = QPoint(
                    p % n * s.TileW + rnd.bounded(int(s.TileW)), p / n * s.TileH + rnd.bounded(int(s.TileH)));
            if (i % 8 == 3)
                at.rx() = n * s.TileW;
            if (i % 8 == 7)
                at.ry() = n * s.TileH;
            const int pressed = std::min(at.y() / s.TileH, n - 1) * n + std::min(at.x() / s.TileW, n - 1);
            const qint64 slept = g.tp.events.sleptUs;
            press(w, at, hows[i % 4]);
            QCOMPARE(s.BlankPos, Integer(besides(s, pressed, b) ? pressed : b));
            moves += s.BlankPos != b;
            if (s.InPlay)
                continue;
            // Solved: the frame animation once, the whole picture framed, and presses do nothing.
            QVERIFY(s.InPlace == s.TileTotal && w.vxrz->image() == w.vxrz_s->image());
            QCOMPARE(g.tp.events.sleptUs - slept, ring);
            for (ShapeBox *bar : { w.vxfr_t, w.vxfr_b, w.vxfr_l, w.vxfr_r })
                QVERIFY(bar->isVisible());
            const auto board = s.Board;
            press(w, centreOf(s, b));
            QVERIFY(s.Board == board && w.vxrz->image() == w.vxrz_s->image());
            ++solves;
            w.setRandomSeed(++seed);
            w.cb_scramble_Click();
        }
        QVERIFY(moves > 300);
        QVERIFY(n > 2 || solves > 0); // 2 x 2 play comes round to the picture often
    }
};

QTEST_MAIN(PlayTest)
#include "tst_play.moc"
