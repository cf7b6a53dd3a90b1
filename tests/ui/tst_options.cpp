// The game options: the puzzle type switch and the size dialog with what each does to the board.
#include "game.h"
#include "options/rzfrm.h"
#include "platform/facebutton.h"
#include "platform/shapes.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace
{
// A fresh window of this type and size; with a picture loaded, and with play a puzzle scrambled on it.
std::unique_ptr<Game> game(const QString &type, Integer n, bool picture, bool play)
{
    auto g = std::make_unique<Game>();
    if (play)
        return g->play(type, n, 11) ? std::move(g) : nullptr;
    if (type == Codes::Drag)
        g->w.cb_type_Click();
    g->s().setGridSize(n);
    g->w.ScrResize();
    if (picture && !g->load(g->picture(QStringLiteral("pic.bmp"), picturegen::pattern(QSize(520, 390), 3))))
        return nullptr;
    return g;
}

bool trayShown(const vxmain &w, int count)
{
    for (int i = 0; i < Codes::TraySlots; ++i)
        if (w.vxpcs[i]->isVisible() != (i < count))
            return false;
    return true;
}

// Runs the size command with a script played on the dialog.
void resizeWith(Game &g, std::function<void(rzfrm &)> script)
{
    g.tp.modals.script = [script](QDialog &d) { script(static_cast<rzfrm &>(d)); };
    g.w.cb_resize_Click();
}

void pick(rzfrm &d, int n)
{
    d.szopt[n - 2]->click();
}
} // namespace

class OptionsTest : public QObject
{
    Q_OBJECT

private slots:
    // The type button asks before abandoning a puzzle, refuses while the hint is armed, and keeps Tag,
    // PuzType, face and tray in step; a switch in play shows the whole picture again.
    void typeSwitch_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<int>("n");
        QTest::addColumn<bool>("play");
        QTest::addColumn<bool>("hint");
        QTest::addColumn<int>("answer"); // 0: no question expected
        QTest::addColumn<bool>("changes");
        QTest::newRow("hint armed") << Codes::Slide << 6 << true << true << 0 << false;
        QTest::newRow("in play, No") << Codes::Slide << 6 << true << false << MsgAnswer::No << false;
        QTest::newRow("in play, Yes, S to D") << Codes::Slide << 4 << true << false << MsgAnswer::Yes << true;
        QTest::newRow("in play, Yes, D to S") << Codes::Drag << 5 << true << false << MsgAnswer::Yes << true;
        QTest::newRow("out of play, S to D") << Codes::Slide << 5 << false << false << 0 << true;
    }
    void typeSwitch()
    {
        QFETCH(QString, from);
        QFETCH(int, n);
        QFETCH(bool, play);
        QFETCH(bool, hint);
        QFETCH(int, answer);
        QFETCH(bool, changes);
        auto g = game(from, Integer(n), play, play);
        QVERIFY(g);
        vxmain &w = g->w;
        if (hint)
            w.cb_help_Click();
        const QImage board = w.vxrz->image();
        g->tp.messages.answers = { answer };
        w.cb_type_Click();
        if (answer) {
            QCOMPARE(g->tp.messages.asked.size(), 1);
            QCOMPARE(g->tp.messages.asked[0].text,
                QStringLiteral(
                    "Changing the Puzzle Type will Clear the Current Puzzle\nDo You Wish to Change Type"));
            QCOMPARE(g->tp.messages.asked[0].title, QStringLiteral("Change Puzzle Type"));
            QCOMPARE(g->tp.messages.asked[0].style, 36);
        } else {
            QVERIFY(g->tp.messages.asked.isEmpty());
        }
        const QString type = changes == (from == Codes::Slide) ? Codes::Drag : Codes::Slide;
        QCOMPARE(w.cb_type->Tag, type);
        QCOMPARE(w.state().PuzType, type);
        QVERIFY(w.cb_type->face().endsWith(type == Codes::Drag ? "cb_type_d.svg" : "cb_type_s.svg"));
        QVERIFY(trayShown(w, type == Codes::Drag ? n : 0));
        QCOMPARE(w.state().InPlay, play && !changes);
        if (play && changes) {
            QCOMPARE(w.vxrz->image(), w.vxrz_s->image());
            QVERIFY(w.vxfr_t->isVisible() && w.vxfr_l->isVisible());
        } else if (play) {
            QCOMPARE(w.vxrz->image(), board);
        }
    }

    // Out of play, two presses bring back the type, the face and the slide layout; the tray takes room.
    void twoPressesRestoreTypeAndLayout()
    {
        auto g = game(Codes::Slide, 5, false, false);
        vxmain &w = g->w;
        const QRect board = w.vxrz->geometry(), frame = w.vxframe_main->geometry();
        const QString face = w.cb_type->face();
        w.cb_type_Click();
        QVERIFY(w.vxframe_main->y() < frame.y());
        QVERIFY(w.vxpcs[0]->y() > w.vxframe_main->geometry().bottom());
        w.cb_type_Click();
        QCOMPARE(w.state().PuzType, Codes::Slide);
        QCOMPARE(w.cb_type->face(), face);
        QVERIFY(trayShown(w, 0));
        QCOMPARE(w.vxrz->geometry(), board);
        QCOMPARE(w.vxframe_main->geometry(), frame);
    }

    // The size dialog's design (twips / 15), and each opening selects the current size and only it.
    void sizeDialogShowsCurrentSize_data()
    {
        QTest::addColumn<int>("n");
        for (int n = 2; n <= 11; ++n)
            QTest::addRow("%d", n) << n;
    }
    void sizeDialogShowsCurrentSize()
    {
        QFETCH(int, n);
        auto g = game(Codes::Slide, Integer(n), false, false);
        const QRect places[10] = { { 60, 25, 65, 20 }, { 60, 46, 65, 20 }, { 60, 67, 65, 20 },
            { 60, 88, 65, 20 }, { 60, 109, 65, 20 }, { 173, 25, 65, 20 }, { 173, 46, 65, 20 },
            { 173, 67, 65, 20 }, { 173, 88, 85, 20 }, { 173, 109, 93, 24 } };
        resizeWith(*g, [&](rzfrm &d) {
            QCOMPARE(d.windowTitle(), QStringLiteral("Puzzle Size"));
            QCOMPARE(d.size(), QSize(312, 212));
            QCOMPARE(d.minimumSize(), d.maximumSize());
            QCOMPARE(d.palette().color(QPalette::Window), QColor(0x80, 0x80, 0x80));
            QCOMPARE(d.ChosenSize, Integer(n));
            for (int i = 0; i < 10; ++i) {
                QCOMPARE(d.szopt[i]->text(), QStringLiteral(" %1 * %1").arg(i + 2));
                QCOMPARE(d.szopt[i]->geometry(), places[i]);
                QCOMPARE(d.szopt[i]->isChecked(), i == n - 2);
                QVERIFY(d.szopt[i]->isEnabled());
            }
            QCOMPARE(d.cb_ok->text(), QStringLiteral("&Resize"));
            QCOMPARE(d.cb_ok->geometry(), QRect(167, 151, 130, 43));
            QCOMPARE(d.cb_cancel->text(), QStringLiteral("&Cancel"));
            QCOMPARE(d.cb_cancel->geometry(), QRect(14, 152, 130, 43));
            d.cb_ok->click();
        });
        QCOMPARE(g->tp.modals.shown, 1);
        QCOMPARE(g->s().GridN, Integer(n));
    }

    // Confirming the same size, Cancel and the close box change nothing: no layout, no new puzzle; a
    // size picked before a Cancel is forgotten.
    void unchangedSizeTouchesNothing()
    {
        auto g = game(Codes::Drag, 6, true, true);
        QVERIFY(g);
        vxmain &w = g->w;
        PuzzleState &s = w.state();
        // A parked piece would be wiped from its box by a layout pass.
        w.vxrz_MouseDown(Qt::LeftButton, {}, 5, 5);
        w.Form_MouseUp(w.vxpcs[0]->x() + 10, w.vxpcs[0]->y() + 10);
        QVERIFY(s.Pcs[0].Home >= 0);
        const std::vector<TileRec> board = s.Board;
        const QImage box = w.vxpcs[0]->image();
        const qsizetype pointerChanges = g->tp.pointers.history.size();
        const QList<std::function<void(rzfrm &)>> scripts = {
            [](rzfrm &d) { d.cb_ok->click(); },
            [](rzfrm &d) {
                pick(d, 9);
                d.cb_cancel->click();
            },
            [](rzfrm &d) {
                pick(d, 3);
                d.close();
            },
            [](rzfrm &d) {
                QVERIFY(d.ChosenSize == 6 && d.szopt[4]->isChecked() && !d.szopt[7]->isChecked());
            },
        };
        for (const auto &script : scripts) {
            resizeWith(*g, script);
            QCOMPARE(s.GridN, Integer(6));
            QVERIFY(s.Board == board);
            QCOMPARE(w.vxpcs[0]->image(), box);
            QCOMPARE(g->tp.pointers.history.size(), pointerChanges); // no scramble
            QVERIFY(s.InPlay);
        }
    }

    // A new size lays the board out again and, with a picture, starts a new puzzle at once.
    void newSizeWithPictureStartsNewPuzzle_data()
    {
        QTest::addColumn<QString>("type");
        QTest::newRow("slide") << Codes::Slide;
        QTest::newRow("drag") << Codes::Drag;
    }
    void newSizeWithPictureStartsNewPuzzle()
    {
        QFETCH(QString, type);
        auto g = game(type, 6, true, true);
        QVERIFY(g);
        const PuzzleState &s = g->s();
        resizeWith(*g, [](rzfrm &d) {
            pick(d, 11);
            d.cb_ok->click();
        });
        QCOMPARE(s.TileTotal, Integer(121));
        QCOMPARE(QSize(s.TileW, s.TileH), QSize(47, 35));
        QCOMPARE(g->w.vxrz->size(), QSize(518, 386));
        QVERIFY(s.InPlay);
        QCOMPARE(int(s.Board.size()), 122);
        QCOMPARE(s.InPlace, s.countInPlace());
        QVERIFY(s.InPlace < s.TileTotal);
        QVERIFY(trayShown(g->w, type == Codes::Drag ? 11 : 0));
        for (int p = 0; p < s.TileTotal; ++p)
            QVERIFY((p == s.BlankPos && type == Codes::Slide) || placeShowsRecord(g->w, p));
    }

    // Without a picture a new size only lays out; with the hint armed the command does nothing.
    void newSizeWithoutPictureOnlyLaysOut()
    {
        auto g = game(Codes::Drag, 6, false, false);
        const PuzzleState &s = g->s();
        resizeWith(*g, [](rzfrm &d) {
            pick(d, 3);
            d.cb_ok->click();
        });
        QCOMPARE(s.TileTotal, Integer(9));
        QCOMPARE(g->w.vxrz->size(), QSize(s.TileW * 3 + 1, s.TileH * 3 + 1));
        QVERIFY(trayShown(g->w, 3));
        QVERIFY(!s.InPlay);
        QVERIFY(!g->tp.pointers.history.contains(PointerShape::Hourglass));

        auto h = game(Codes::Slide, 6, true, true);
        QVERIFY(h);
        h->w.cb_help_Click();
        resizeWith(*h, [](rzfrm &d) {
            pick(d, 2);
            d.cb_ok->click();
        });
        QCOMPARE(h->tp.modals.shown, 0);
        QCOMPARE(h->s().GridN, Integer(6));
    }
};

QTEST_MAIN(OptionsTest)
#include "tst_options.moc"
