// Play on the board: the grid over the tiles (dotted between tiles that already fit as in the picture,
// solid elsewhere, in the colour its button toggles) and the scramble.
#include "game.h"
#include "platform/facebutton.h"
#include "play/scramble.h"

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

} // namespace

class PlayTest : public QObject
{
    Q_OBJECT
private slots:
    void linesDottedExactlyWhereTilesFit_data()
    {
        columns<int, QString>({ "n", "order" });
        for (const char *order : { "solved", "reversed", "transposed" })
            for (int n : { 2, 5, 11 })
                QTest::addRow("%s %dx%d", order, n, n) << n << QString::fromLatin1(order);
    }
    // Solved: every inner line dotted, the border solid. Reversed: nothing fits, all solid. Transposed:
    // each pair are picture neighbours standing in the other direction (side by side in the picture, one
    // above the other on the board, and the reverse), so all solid.
    void linesDottedExactlyWhereTilesFit()
    {
        const auto [n, order] = fetch<int, QString>("n", "order");
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
    // frame bars gone, under the hourglass, holding input at each walk step. (Play on it: tst_soak.)
    void scrambleDrawsTablesFromSeed_data()
    {
        QTest::addColumn<int>("n");
        for (int n : { 2, 6, 11 })
            QTest::addRow("%dx%d", n, n) << n;
    }
    void scrambleDrawsTablesFromSeed()
    {
        QFETCH(int, n);
        Game g;
        QVERIFY(g.play(Codes::Slide, n, 100));
        PuzzleState expected = g.s();
        RandomSource random(100);
        const ScrambleReport report = scrambleTables(expected, random, [] {});
        QVERIFY(
            g.s().Board == expected.Board && g.s().BlankPos == expected.BlankPos && holdersShowTables(g.w));
        QCOMPARE(g.tp.events.pumped, std::accumulate(report.walkSteps.begin(), report.walkSteps.end(), 0));
        QVERIFY(g.tp.events.heldInput && !g.w.vxfr_t->isVisible() && !g.w.vxfr_r->isVisible()
            && !g.w.vxfr_b->isVisible() && !g.w.vxfr_l->isVisible());
        QCOMPARE(g.tp.pointers.history.mid(g.tp.pointers.history.size() - 2), HourglassThenDefault);
    }
};

QTEST_MAIN(PlayTest)
#include "tst_play.moc"
