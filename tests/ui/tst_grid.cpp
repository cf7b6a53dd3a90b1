// The grid over the board: dotted between tiles that already fit as in the picture, solid elsewhere,
// in the colour its button toggles.
#include "game.h"
#include "platform/facebutton.h"

#include <QRandomGenerator>
#include <QTest>

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

// What the tables call for: dotted where the two tiles lie as in the picture, solid elsewhere.
QString wanted(const PuzzleState &s)
{
    QString out;
    const int N = s.GridN;
    for (const Segment &g : segmentsOf(s)) {
        const int ha = s.Board[std::max(g.a, 0)].Home, hb = s.Board[std::max(g.b, 0)].Home;
        out += g.a >= 0 && (g.vertical ? ha % N + 1 == hb % N && ha / N == hb / N : ha + N == hb) ? 'D' : 'S';
    }
    return out;
}
} // namespace

class GridTest : public QObject
{
    Q_OBJECT
private slots:
    void linesDottedExactlyWhereTilesFit_data()
    {
        QTest::addColumn<int>("n");
        QTest::addColumn<QString>("order");
        for (const char *order : { "solved", "reversed", "transposed" })
            for (int n = Codes::MinGrid; n <= Codes::MaxGrid; ++n)
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
        QCOMPARE(wanted(s), want);
    }

    void linesFollowTheTilesThroughPlay_data()
    {
        QTest::addColumn<int>("n");
        QTest::addColumn<QString>("type");
        for (int n = Codes::MinGrid; n <= Codes::MaxGrid; ++n)
            QTest::addRow("S %dx%d", n, n) << n << Codes::Slide;
        for (int n : { 2, 6, 11 })
            QTest::addRow("D %dx%d", n, n) << n << Codes::Drag;
    }
    // After each scramble and each slide every boundary is drawn as its two tiles call for.
    void linesFollowTheTilesThroughPlay()
    {
        QFETCH(int, n);
        QFETCH(QString, type);
        Game g;
        QVERIFY(g.play(type, n));
        const PuzzleState &s = g.s();
        QRandomGenerator rnd { quint32(n) };
        int dotted = 0;
        for (quint32 seed : { 2u, 3u, 4u }) {
            g.w.setRandomSeed(seed);
            g.w.cb_scramble_Click();
            QCOMPARE(drawn(g.w, White), wanted(s));
            dotted += wanted(s).count('D');
            for (int i = 0; i < 40 && type == Codes::Slide; ++i) {
                const int b = s.BlankPos, q = b + std::array { -1, 1, -n, n }[rnd.bounded(4)];
                if (q < 0 || q >= n * n || (q % n != b % n && q / n != b / n))
                    continue;
                g.w.vxrz_MouseDown(
                    Qt::LeftButton, {}, float(q % n * s.TileW + 1), float(q / n * s.TileH + 1));
                if (!s.InPlay)
                    break; // solved: the whole picture shows without a grid
                QCOMPARE(drawn(g.w, White), wanted(s));
                dotted += wanted(s).count('D');
            }
        }
        QVERIFY(n < 4 || dotted > 0); // play leaves some pairs joined
    }

    // The button toggles white and black with its Tag and face and outlines the tray boxes in use; the
    // board's lines take the colour only while a puzzle is in play. With the hint armed it does nothing.
    void gridButtonTogglesColour()
    {
        Game g;
        vxmain &w = g.w;
        const PuzzleState &s = g.s();
        QVERIFY(g.load(g.picture("pic.bmp", picturegen::scene(QSize(520, 390), 3))));
        const QImage whole = w.vxrz->image(), spare = w.vxpcs[s.GridN]->image();
        for (int k = 0; k < 3; ++k) {
            const bool black = k != 1, inPlay = k == 2;
            const QRgb colour = black ? Black : White;
            if (inPlay) {
                w.setRandomSeed(5);
                w.cb_scramble_Click();
            }
            w.cb_grid_Click();
            QCOMPARE(w.cb_grid->Tag, black ? Codes::Black : Codes::White);
            QCOMPARE(fromBgr(s.GridColor), colour);
            QVERIFY(w.cb_grid->face().endsWith(black ? "cb_grid_b.svg" : "cb_grid_w.svg"));
            for (int i = 0; i < s.GridN; ++i)
                for (QPoint p : { QPoint(0, 0), QPoint(s.TileW - 1, 0), QPoint(0, s.TileH - 1),
                         QPoint(s.TileW - 1, s.TileH - 1), QPoint(s.TileW / 2, s.TileH - 1) })
                    QCOMPARE(w.vxpcs[i]->image().pixel(p), colour);
            QVERIFY(w.vxpcs[s.GridN]->image() == spare);
            if (inPlay)
                QCOMPARE(drawn(w, Black), wanted(s));
            else
                QVERIFY(w.vxrz->image() == whole);
        }
        g.s().HintMode = true;
        const QImage board = w.vxrz->image(), tray = w.vxpcs[0]->image();
        w.cb_grid_Click();
        QVERIFY(w.cb_grid->Tag == Codes::Black && s.GridColor == Codes::BlackColor);
        QVERIFY(w.cb_grid->face().endsWith("cb_grid_b.svg"));
        QVERIFY(w.vxrz->image() == board && w.vxpcs[0]->image() == tray);
    }
};

QTEST_MAIN(GridTest)
#include "tst_grid.moc"
