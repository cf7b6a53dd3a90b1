// Long random play in a player's order: commands in any order over pictures of several sizes and
// proportions, with restarts of the window. VARNO_SOAK=1 (`make soak`) plays 40 games of 2,500 steps;
// `make test` plays 8 of 200.
#include "game.h"
#include "options/rzfrm.h"
#include "pictures/libfrm.h"
#include "platform/facebutton.h"
#include "render/picturefile.h"
#include "store/puzzlefile.h"

#include <QDir>
#include <QPushButton>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QTest>
#include <memory>

namespace
{
const bool LongRun = qEnvironmentVariableIntValue("VARNO_SOAK") == 1;

bool besides(const PuzzleState &s, int a, int b)
{
    return std::abs(a % s.GridN - b % s.GridN) + std::abs(a / s.GridN - b / s.GridN) == 1;
}

// An arrow key slides the tile beside the blank on its side in type "S", if there is one, and nothing in
// type "D". Type "S": a press with any button (a modifier changes nothing), half of them on a tile beside the
// blank, every fourth on the box's extra pixel column or row, which belongs to the last column or row;
// true when the pressed tile slid only if it stood beside the blank. Type "D": a lift from the board or a
// tray box and a drop on either or anywhere in the window, by the pointer or by the keys.
bool randomMove(vxmain &w, QRandomGenerator &rng)
{
    const PuzzleState &s = w.state();
    const int k = int(rng.bounded(4)), n = s.GridN, b = s.BlankPos, p = b + std::array { -1, -n, 1, n }[k];
    const bool beside = p >= 0 && p < s.TileTotal && besides(s, p, b);
    QPoint at(rng.bounded(w.vxrz->width()), rng.bounded(w.vxrz->height()));
    if (rng.bounded(5) == 0) { // the arrow keys Left, Up, Right and Down
        const std::vector<TileRec> board = s.Board;
        QTest::keyClick(w.cb_scramble, Qt::Key(Qt::Key_Left + k));
        return s.PuzType == Codes::Slide ? s.BlankPos == (beside ? p : b) : s.Board == board;
    }
    if (s.PuzType == Codes::Slide) {
        if (rng.bounded(2) && beside)
            at = QPoint(
                p % n * s.TileW + rng.bounded(int(s.TileW)), p / n * s.TileH + rng.bounded(int(s.TileH)));
        const int edge = rng.bounded(8);
        at = edge == 0 ? QPoint(n * s.TileW, at.y()) : edge == 1 ? QPoint(at.x(), n * s.TileH) : at;
        const int pressed = std::min(at.y() / s.TileH, n - 1) * n + std::min(at.x() / s.TileW, n - 1);
        w.vxrz_MouseDown(std::array { Qt::LeftButton, Qt::RightButton, Qt::MiddleButton }[rng.bounded(3)],
            rng.bounded(2) ? Qt::ShiftModifier : Qt::NoModifier, at.x(), at.y());
        return s.BlankPos == (besides(s, pressed, b) ? pressed : b);
    }
    if (rng.bounded(3) == 0) { // the keys: a lift, two arrows, a drop or Escape, Escape for a last key's lift
        for (const int key : { int(Qt::Key_Space), Qt::Key_Left + k, Qt::Key_Left + int(rng.bounded(4)),
                 rng.bounded(5) ? int(Qt::Key_Return) : int(Qt::Key_Escape), int(Qt::Key_Escape) })
            QTest::keyClick(w.vxrz, Qt::Key(key));
        return s.DragIdx < 0;
    }
    const auto anywhere = [&](QWidget *box) {
        return box->mapTo(&w, QPoint(rng.bounded(box->width()), rng.bounded(box->height())));
    };
    const int from = rng.bounded(n + 1), to = rng.bounded(n + 2);
    if (from == n)
        w.vxrz_MouseDown(Qt::LeftButton, {}, at.x(), at.y());
    else
        w.vxpcs_MouseDown(from, Qt::LeftButton, {}, 3, 3);
    const QPoint drop = to < n ? anywhere(w.vxpcs[to]) : anywhere(to == n ? (QWidget *)w.vxrz : &w);
    w.Form_MouseMove(drop.x(), drop.y());
    w.Form_MouseUp(drop.x(), drop.y());
    return true;
}

// A puzzle in play is sound as a load checks it (every home held once, the blank, the count at home,
// tiles that a load cuts inside its picture), every holder shows what it holds and the grid was drawn
// again (drawing it once more changes nothing). Returns what is wrong.
QString unsound(vxmain &w)
{
    const PuzzleState &s = w.state();
    if (!s.InPlay)
        return {};
    auto saved = puzzlefile::decode(puzzlefile::encode(s));
    if (const auto *p = std::get_if<puzzlefile::SavedPuzzle>(&saved))
        if (const auto e = puzzlefile::checkSources(*p, picturefile::probe(s.PicFile).size))
            saved = *e;
    if (const auto *e = std::get_if<puzzlefile::LoadError>(&saved))
        return e->text;
    const QImage shown = w.vxrz->image();
    w.DrawLines();
    const bool shows = holdersShowTables(w) && w.vxrz->image() == shown;
    return shows && trayShown(w, s.PuzType == Codes::Drag ? s.GridN : 0)
        ? QString()
        : QStringLiteral("a holder shows another tile");
}

// A program folder with pictures of several sizes and proportions beside the program and one in its
// library, and the game over it, which a restart makes anew.
struct Player {
    QTemporaryDir dir;
    std::unique_ptr<Game> g;
    QStringList pictures;
    QRandomGenerator rng;
    QByteArray lastSave;

    explicit Player(quint32 seed)
        : rng(seed)
    {
        restart();
        const std::pair<const char *, QSize> files[] = { { "photo.jpg", { 1024, 768 } },
            { "tall.bmp", { 600, 800 } }, { "wide.gif", { 1040, 348 } }, { "small.jpg", { 130, 81 } },
            { "Bild ü 狐.bmp", { 300, 300 } }, { "lib/VX_lib.jpg", { 800, 600 } } };
        for (const auto &[name, size] : files)
            pictures << g->picture(QString::fromUtf8(name), picturegen::scene(size, seed));
        pictures.removeLast();
    }
    void restart()
    {
        g.reset();
        g = std::make_unique<Game>(dir.path());
        g->w.setRandomSeed(rng.generate());
    }
    PuzzleState &s() const
    {
        return g->s();
    }

    // One command as a player gives it; returns what went wrong, or an empty string.
    QString step(int command)
    {
        vxmain &w = g->w;
        TestPlatform &tp = g->tp;
        const bool playing = s().InPlay && !s().HintMode;
        switch (command) {
        case 0:
            tp.files.choose(pictures[rng.bounded(pictures.size())]);
            w.cb_new_Click();
            break;
        case 1: // the library's picture, or Cancel
            tp.modals.script = [pick = rng.bounded(3) > 0](QDialog &d) {
                pick ? static_cast<libfrm &>(d).libimg_DblClick(0)
                     : static_cast<libfrm &>(d).cb_cancel->click();
            };
            w.cb_lib_Click();
            break;
        case 2: { // a size (2 x 2 often, which play solves now and then), confirmed, cancelled or closed;
            // the dialog opens on the current size, and only a new size confirmed changes anything
            const int n = rng.bounded(3) ? rng.bounded(10) + 2 : 2, how = rng.bounded(6);
            const PuzzleState before = s();
            bool current = before.HintMode;
            tp.modals.script = [&](QDialog &d) {
                auto &r = static_cast<rzfrm &>(d);
                current = r.szopt[before.GridN - 2]->isChecked();
                r.szopt[n - 2]->click();
                how == 0 ? (void)r.close() : (how == 1 ? r.cb_cancel : r.cb_ok)->click();
            };
            w.cb_resize_Click();
            const bool same = before.HintMode || how < 2 || n == before.GridN;
            if (!current
                || (same ? puzzlefile::encode(s()) != puzzlefile::encode(before)
                         : s().InPlay == s().PicFile.isEmpty()))
                return QStringLiteral("the size dialog did other than it was told");
            break;
        }
        case 3:
            tp.messages.answers = { rng.bounded(2) ? MsgAnswer::Yes : MsgAnswer::No };
            w.cb_type_Click();
            break;
        case 4:
            w.cb_grid_Click();
            break;
        case 5:
            w.cb_scramble_Click();
            break;
        case 6:
        case 7: { // the full image (only in play) or the help, with no tray box; a click on it comes back
            PictureBox *view = command == 6 ? w.vxrz_s : w.hlpdoc;
            command == 6 ? w.cb_full_Click() : w.cb_helpdoc_Click();
            if (view->isVisible() != (command == 7 || playing) || (view->isVisible() && !trayShown(w, 0)))
                return QStringLiteral("a view shows where it may not");
            QTest::mouseClick(view, Qt::LeftButton);
            break;
        }
        case 8: { // the hint armed (only in play); then a press on the board or an arrow key shows a home or
            // disarms it, and slides no tile
            const bool armed = s().HintMode;
            w.cb_help_Click();
            if (s().HintMode != (s().InPlay && !armed))
                return QStringLiteral("the hint is armed where it may not be");
            if (!s().HintMode)
                break;
            const std::vector<TileRec> board = s().Board;
            if (rng.bounded(2))
                QTest::keyClick(w.cb_scramble, Qt::Key(Qt::Key_Left + rng.bounded(4)));
            else
                w.vxrz_MouseDown(
                    Qt::LeftButton, {}, rng.bounded(w.vxrz->width()), rng.bounded(w.vxrz->height()));
            if (s().Board != board)
                return QStringLiteral("a tile slid while the hint was armed");
            break;
        }
        case 9:
            w.cb_load_Click();
            break;
        case 10:
            return saveAndLoad();
        case 11: // a new start of the game finds the last save
            restart();
            g->w.cb_load_Click();
            if (!lastSave.isEmpty() && puzzlefile::encode(s()) != lastSave)
                return QStringLiteral("the load after a restart differs from the save");
            break;
        default:
            for (int k = rng.bounded(40); playing && s().InPlay && k > 0; --k)
                if (!randomMove(w, rng))
                    return QStringLiteral("a key or a press slid a tile away from the blank");
            // Solved: the whole picture framed, and no press is taken. (After a new size the board can
            // stand a pixel wider or narrower than the picture.)
            if (playing && !s().InPlay) {
                const auto board = s().Board;
                const QRect both = w.vxrz->rect() & w.vxrz_s->rect();
                w.vxrz_MouseDown(Qt::LeftButton, {}, 5, 5);
                if (s().InPlace != s().TileTotal || w.vxrz->image().copy(both) != w.vxrz_s->image().copy(both)
                    || !framed(w) || s().Board != board)
                    return QStringLiteral("the solved puzzle is not shown whole");
            }
        }
        return {};
    }

    // A save is loaded back as the same tables, every holder showing its piece (checked after every
    // step), and saved again as the same bytes.
    QString saveAndLoad()
    {
        if (!s().allows(Command::SaveGame))
            return {};
        g->w.cb_save_Click();
        lastSave = bytesOf(s().PzlFile);
        g->w.cb_load_Click();
        if (puzzlefile::encode(s()) != lastSave || !s().InPlay)
            return QStringLiteral("the load gives another puzzle than the save");
        g->w.cb_save_Click();
        return bytesOf(s().PzlFile) == lastSave ? QString() : QStringLiteral("the second save differs");
    }
};
} // namespace

class SoakTest : public QObject
{
    Q_OBJECT

private slots:
    // Any command in any order, moves most often, stays sound after every step and never meets an error
    // box: a save after a size change, a type switch or another picture loads back as it was saved.
    void randomCommandsInAnyOrder()
    {
        int solves = 0, loads = 0;
        for (quint32 game = 0; game < (LongRun ? 40u : 8u); ++game) {
            Player p(game);
            QString trail; // the last commands, for a failure's message
            for (int k = 0; k < (LongRun ? 2500 : 200); ++k) {
                const int command = p.rng.bounded(18);
                trail = (trail + QLatin1Char(' ') + QString::number(command)).right(80);
                const bool playing = p.s().InPlay;
                p.g->tp.messages.answers.clear();
                p.g->tp.messages.asked.clear();
                QString fault = p.step(command);
                fault = fault.isEmpty() ? unsound(p.g->w) : fault;
                for (const AskedBox &b : std::as_const(p.g->tp.messages.asked))
                    fault = fault.isEmpty() && b.style == MsgStyle::Critical ? b.text : fault;
                QVERIFY2(fault.isEmpty(),
                    qPrintable(QStringLiteral("game %1, step %2, commands %3: %4")
                                   .arg(game)
                                   .arg(k)
                                   .arg(trail, fault)));
                solves += playing && command >= 12 && p.s().InPlace == p.s().TileTotal;
                loads += command == 10 && playing;
            }
        }
        QVERIFY(solves > 0 && loads > 10);
    }
};

QTEST_MAIN(SoakTest)
#include "tst_soak.moc"
