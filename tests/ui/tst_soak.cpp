// Long random play with save and load cycles. VARNO_SOAK=1 (`make soak`) plays 100,000 moves with 1,000
// save and load cycles; `make test` plays 2,000 with 20.
#include "game.h"
#include "store/puzzlefile.h"

#include <QRandomGenerator>
#include <QTest>

namespace
{
const bool LongRun = qEnvironmentVariableIntValue("VARNO_SOAK") == 1;

bool besides(const PuzzleState &s, int a, int b)
{
    return std::abs(a % s.GridN - b % s.GridN) + std::abs(a / s.GridN - b / s.GridN) == 1;
}

// Type "S": a press with any button (a modifier changes nothing), half of them on a tile beside the
// blank, every fourth on the box's extra pixel column or row, which belongs to the last column or row;
// true when the pressed tile slid only if it stood beside the blank. Type "D": a lift from the board or a
// tray box and a drop on either or anywhere in the window.
bool randomMove(Game &g, QRandomGenerator &rng)
{
    const PuzzleState &s = g.s();
    const int n = s.GridN, b = s.BlankPos, p = b + std::array { -1, 1, -n, n }[rng.bounded(4)];
    QPoint at(rng.bounded(g.w.vxrz->width()), rng.bounded(g.w.vxrz->height()));
    if (s.PuzType == Codes::Slide) {
        if (rng.bounded(2) && p >= 0 && p < s.TileTotal && besides(s, p, b))
            at = QPoint(
                p % n * s.TileW + rng.bounded(int(s.TileW)), p / n * s.TileH + rng.bounded(int(s.TileH)));
        const int edge = rng.bounded(8);
        at = edge == 0 ? QPoint(n * s.TileW, at.y()) : edge == 1 ? QPoint(at.x(), n * s.TileH) : at;
        const int pressed = std::min(at.y() / s.TileH, n - 1) * n + std::min(at.x() / s.TileW, n - 1);
        g.w.vxrz_MouseDown(std::array { Qt::LeftButton, Qt::RightButton, Qt::MiddleButton }[rng.bounded(3)],
            rng.bounded(2) ? Qt::ShiftModifier : Qt::NoModifier, at.x(), at.y());
        return s.BlankPos == (besides(s, pressed, b) ? pressed : b);
    }
    const auto anywhere = [&](QWidget *box) {
        return box->mapTo(&g.w, QPoint(rng.bounded(box->width()), rng.bounded(box->height())));
    };
    const int from = rng.bounded(n + 1), to = rng.bounded(n + 2);
    if (from == n)
        g.w.vxrz_MouseDown(Qt::LeftButton, {}, at.x(), at.y());
    else
        g.w.vxpcs_MouseDown(from, Qt::LeftButton, {}, 3, 3);
    const QPoint drop = to < n ? anywhere(g.w.vxpcs[to]) : anywhere(to == n ? (QWidget *)g.w.vxrz : &g.w);
    g.w.Form_MouseMove(drop.x(), drop.y());
    g.w.Form_MouseUp(drop.x(), drop.y());
    return true;
}

// Sound as a load checks it (every home held once, the blank, the count at home, the sources), every
// holder shows what it holds and the grid was drawn again (drawing it once more changes nothing).
bool sound(Game &g)
{
    const PuzzleState &s = g.s();
    const auto saved = puzzlefile::decode(puzzlefile::encode(s));
    const auto *p = std::get_if<puzzlefile::SavedPuzzle>(&saved);
    const QImage shown = g.w.vxrz->image();
    g.w.DrawLines();
    return p && !puzzlefile::checkSources(*p, s.TileW, s.TileH) && holdersShowTables(g.w)
        && g.w.vxrz->image() == shown;
}
} // namespace

class SoakTest : public QObject
{
    Q_OBJECT

private slots:
    // Random moves over every size and both types stay sound. The solving move shows the whole picture
    // framed, growing the frame once more, and the board then takes no press. Every 100th move a save, a
    // load and a second save write the same bytes and show the same board (but for the corner pixel that
    // no grid line reaches, which only a load clears).
    void randomPlayWithSaveLoadCycles()
    {
        QRandomGenerator rng(12);
        int slides = 0, solves = 0;
        for (int i = 0; i < 20; ++i) {
            Game g;
            const PuzzleState &s = g.s();
            QVERIFY(g.play(i % 2 ? Codes::Drag : Codes::Slide, Integer(2 + i / 2), quint32(i)));
            const qint64 ring = g.tp.events.sleptUs; // the load's frame animation, in virtual time
            for (int k = 1; k <= (LongRun ? 5000 : 100); ++k) {
                const qint64 slept = g.tp.events.sleptUs;
                const int blank = s.BlankPos;
                QVERIFY2(
                    randomMove(g, rng), qPrintable(QStringLiteral("size %1, move %2").arg(s.GridN).arg(k)));
                slides += s.BlankPos != blank;
                if (!s.InPlay) { // solved
                    const auto board = s.Board;
                    QVERIFY(
                        s.InPlace == s.TileTotal && g.w.vxrz->image() == g.w.vxrz_s->image() && framed(g.w));
                    QCOMPARE(g.tp.events.sleptUs - slept, ring);
                    g.w.vxrz_MouseDown(Qt::LeftButton, {}, 5, 5);
                    QVERIFY(s.Board == board && g.w.vxrz->image() == g.w.vxrz_s->image());
                    ++solves;
                    g.w.cb_scramble_Click();
                }
                QVERIFY2(sound(g), qPrintable(QStringLiteral("size %1, move %2").arg(s.GridN).arg(k)));
                if (k % 100)
                    continue;
                g.w.cb_save_Click();
                const QByteArray saved = bytesOf(s.PzlFile);
                QImage board = g.w.vxrz->image();
                g.w.cb_load_Click();
                g.w.cb_save_Click();
                const QImage now = g.w.vxrz->image();
                board.setPixel(
                    board.width() - 1, board.height() - 1, now.pixel(now.width() - 1, now.height() - 1));
                QVERIFY(bytesOf(s.PzlFile) == saved && now == board);
            }
        }
        QVERIFY(slides > 300 && solves > 0); // 2 x 2 play comes round to the picture often
    }
};

QTEST_MAIN(SoakTest)
#include "tst_soak.moc"
