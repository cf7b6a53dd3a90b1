// Long random play with save and load cycles. VARNO_SOAK=1 (`make soak`) plays 100,000 moves with 1,000
// save and load cycles; `make test` plays 2,000 with 20.
#include "game.h"
#include "store/puzzlefile.h"

#include <QRandomGenerator>
#include <QTest>

namespace
{
const bool LongRun = qEnvironmentVariableIntValue("VARNO_SOAK") == 1;

// A press anywhere on the board (type "S"); a lift from the board or a tray box and a drop on either or
// anywhere in the window (type "D").
void randomMove(Game &g, QRandomGenerator &rng)
{
    const auto anywhere = [&](QWidget *box) {
        return box->mapTo(&g.w, QPoint(rng.bounded(box->width()), rng.bounded(box->height())));
    };
    const int n = g.s().GridN, from = rng.bounded(n + 1), to = rng.bounded(n + 2);
    const QPoint at(rng.bounded(g.w.vxrz->width()), rng.bounded(g.w.vxrz->height()));
    if (g.s().PuzType == Codes::Slide || from == n)
        g.w.vxrz_MouseDown(Qt::LeftButton, {}, at.x(), at.y());
    else
        g.w.vxpcs_MouseDown(from, Qt::LeftButton, {}, 3, 3);
    const QPoint drop = to < n ? anywhere(g.w.vxpcs[to]) : anywhere(to == n ? (QWidget *)g.w.vxrz : &g.w);
    g.w.Form_MouseMove(drop.x(), drop.y());
    g.w.Form_MouseUp(drop.x(), drop.y());
}

// Sound as a load checks it (every home held once, the blank, the count at home, the sources), every
// holder shows what it holds and the grid was drawn again (drawing it once more changes nothing); a
// solved puzzle shows the whole picture.
bool sound(Game &g)
{
    const PuzzleState &s = g.s();
    const auto saved = puzzlefile::decode(puzzlefile::encode(s));
    const auto *p = std::get_if<puzzlefile::SavedPuzzle>(&saved);
    if (!s.InPlay)
        return s.InPlace == s.TileTotal && g.w.vxrz->image() == g.w.vxrz_s->image();
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
    // Random presses and drags over every size and both types stay sound; every 100th move a save, a load
    // and a second save write the same bytes and show the same board (but for the corner pixel that no
    // grid line reaches, which only a load clears).
    void randomPlayWithSaveLoadCycles()
    {
        QRandomGenerator rng(12);
        for (int i = 0; i < 20; ++i) {
            Game g;
            QVERIFY(g.play(i % 2 ? Codes::Drag : Codes::Slide, Integer(2 + i / 2), quint32(i)));
            for (int k = 1; k <= (LongRun ? 5000 : 100); ++k) {
                randomMove(g, rng);
                QVERIFY2(sound(g), qPrintable(QStringLiteral("size %1, move %2").arg(2 + i / 2).arg(k)));
                if (!g.s().InPlay)
                    g.w.cb_scramble_Click();
                if (k % 100)
                    continue;
                g.w.cb_save_Click();
                const QByteArray saved = bytesOf(g.s().PzlFile);
                QImage board = g.w.vxrz->image();
                g.w.cb_load_Click();
                g.w.cb_save_Click();
                const QImage now = g.w.vxrz->image();
                board.setPixel(
                    board.width() - 1, board.height() - 1, now.pixel(now.width() - 1, now.height() - 1));
                QVERIFY(bytesOf(g.s().PzlFile) == saved && now == board);
            }
        }
    }
};

QTEST_MAIN(SoakTest)
#include "tst_soak.moc"
