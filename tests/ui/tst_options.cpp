// The game options: the puzzle type switch and the size dialog with what each does to the board.
#include "app/vxmain.h"
#include "doubles.h"
#include "options/rzfrm.h"
#include "platform/facebutton.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"
#include "tools/picturegen.h"

#include <QFile>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

namespace
{
struct Game {
    TestPlatform tp;
    QTemporaryDir dir;
    std::unique_ptr<vxmain> w;
};

// A fresh window; with a picture it is loaded, and with play a puzzle is scrambled on it.
std::unique_ptr<Game> game(const QString &type, Integer n, bool picture, bool play)
{
    auto g = std::make_unique<Game>();
    g->w = std::make_unique<vxmain>(g->tp.platform(), g->dir.path());
    vxmain &w = *g->w;
    w.show();
    if (type == Codes::Drag)
        w.cb_type_Click();
    w.state().setGridSize(n);
    w.ScrResize();
    if (picture) {
        w.state().PicFile = g->dir.filePath(QStringLiteral("pic.bmp"));
        if (!picturegen::pattern(QSize(520, 390), 3).save(w.state().PicFile, "BMP") || !w.LoadPic("Load"))
            return nullptr;
    }
    w.setRandomSeed(11);
    if (play)
        w.cb_scramble_Click();
    return g;
}

const QString TypeQuestion
    = QStringLiteral("Changing the Puzzle Type will Clear the Current Puzzle\nDo You Wish to Change Type");

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
    g.w->cb_resize_Click();
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
    // The type button refuses while the hint is armed, asks before abandoning a puzzle, and keeps
    // Tag, PuzType, face and tray in step.
    void typeButtonIgnoredWhileHintArmed()
    {
        auto g = game(Codes::Slide, 6, true, true);
        QVERIFY(g);
        g->w->cb_help_Click();
        QVERIFY(g->w->state().HintMode);
        g->w->cb_type_Click();
        QCOMPARE(g->w->cb_type->Tag, Codes::Slide);
        QCOMPARE(g->w->state().PuzType, Codes::Slide);
        QVERIFY(g->w->cb_type->face().endsWith(QLatin1String("cb_type_s.svg")));
        QVERIFY(g->tp.messages.asked.isEmpty());
        QVERIFY(g->w->state().InPlay);
    }

    void typeSwitchAnsweredNoChangesNothing()
    {
        auto g = game(Codes::Slide, 6, true, true);
        QVERIFY(g);
        vxmain &w = *g->w;
        const QImage board = w.vxrz->image();
        const QRect geometry = w.vxrz->geometry();
        g->tp.messages.answers = { MsgAnswer::No };
        w.cb_type_Click();
        QCOMPARE(g->tp.messages.asked.size(), 1);
        QCOMPARE(g->tp.messages.asked[0].text, TypeQuestion);
        QCOMPARE(g->tp.messages.asked[0].title, QStringLiteral("Change Puzzle Type"));
        QCOMPARE(g->tp.messages.asked[0].style, 36);
        QCOMPARE(w.cb_type->Tag, Codes::Slide);
        QCOMPARE(w.state().PuzType, Codes::Slide);
        QVERIFY(w.cb_type->face().endsWith(QLatin1String("cb_type_s.svg")));
        QVERIFY(trayShown(w, 0));
        QVERIFY(w.state().InPlay);
        QCOMPARE(w.vxrz->geometry(), geometry);
        QCOMPARE(w.vxrz->image(), board);
    }

    void typeSwitchAnsweredYesShowsWholePictureAndTray()
    {
        auto g = game(Codes::Slide, 4, true, true);
        QVERIFY(g);
        vxmain &w = *g->w;
        g->tp.messages.answers = { MsgAnswer::Yes };
        w.cb_type_Click();
        QCOMPARE(g->tp.messages.asked.size(), 1);
        QCOMPARE(g->tp.messages.asked[0].text, TypeQuestion);
        QCOMPARE(g->tp.messages.asked[0].title, QStringLiteral("Change Puzzle Type"));
        QCOMPARE(g->tp.messages.asked[0].style, 36);
        QCOMPARE(w.cb_type->Tag, Codes::Drag);
        QCOMPARE(w.state().PuzType, Codes::Drag);
        QVERIFY(w.cb_type->face().endsWith(QLatin1String("cb_type_d.svg")));
        QVERIFY(trayShown(w, 4));
        QVERIFY(!w.state().InPlay);
        QCOMPARE(w.vxrz->image(), w.vxrz_s->image());
        QVERIFY(w.vxfr_t->isVisible() && w.vxfr_l->isVisible());
        // The abandoned puzzle cannot be saved.
        w.cb_save_Click();
        QVERIFY(!QFile::exists(w.state().PzlFile));

        // And back to slide, also in play: all eleven boxes go.
        w.cb_scramble_Click();
        g->tp.messages.answers = { MsgAnswer::Yes };
        w.cb_type_Click();
        QCOMPARE(w.cb_type->Tag, Codes::Slide);
        QVERIFY(trayShown(w, 0));
        QVERIFY(!w.state().InPlay);
    }

    void twoPressesOutOfPlayRestoreTypeFaceAndLayout()
    {
        auto g = game(Codes::Slide, 5, false, false);
        QVERIFY(g);
        vxmain &w = *g->w;
        const QRect board = w.vxrz->geometry();
        const QRect frame = w.vxframe_main->geometry();
        const QString face = w.cb_type->face();
        w.cb_type_Click();
        QCOMPARE(w.cb_type->Tag, Codes::Drag);
        QVERIFY(trayShown(w, 5));
        QVERIFY(w.vxframe_main->y() < frame.y()); // room made for the tray
        QVERIFY(w.vxpcs[0]->y() > w.vxframe_main->geometry().bottom());
        w.cb_type_Click();
        QVERIFY(g->tp.messages.asked.isEmpty());
        QCOMPARE(w.cb_type->Tag, Codes::Slide);
        QCOMPARE(w.state().PuzType, Codes::Slide);
        QCOMPARE(w.cb_type->face(), face);
        QVERIFY(trayShown(w, 0));
        QCOMPARE(w.vxrz->geometry(), board);
        QCOMPARE(w.vxframe_main->geometry(), frame);
    }

    // The size dialog's design: title, captions, buttons and their places (twips / 15).
    void sizeDialogDesign()
    {
        auto g = game(Codes::Slide, 6, false, false);
        QVERIFY(g);
        const QStringList captions = { " 2 * 2", " 3 * 3", " 4 * 4", " 5 * 5", " 6 * 6", " 7 * 7", " 8 * 8",
            " 9 * 9", " 10 * 10", " 11 * 11" };
        const QRect places[10] = { { 60, 25, 65, 20 }, { 60, 46, 65, 20 }, { 60, 67, 65, 20 },
            { 60, 88, 65, 20 }, { 60, 109, 65, 20 }, { 173, 25, 65, 20 }, { 173, 46, 65, 20 },
            { 173, 67, 65, 20 }, { 173, 88, 85, 20 }, { 173, 109, 93, 24 } };
        bool ran = false;
        resizeWith(*g, [&](rzfrm &d) {
            ran = true;
            QCOMPARE(d.windowTitle(), QStringLiteral("Puzzle Size"));
            QCOMPARE(d.size(), QSize(312, 212));
            QCOMPARE(d.minimumSize(), d.maximumSize());
            QCOMPARE(d.palette().color(QPalette::Window), QColor(0x80, 0x80, 0x80));
            for (int i = 0; i < 10; ++i) {
                QCOMPARE(d.szopt[i]->text(), captions[i]);
                QCOMPARE(d.szopt[i]->geometry(), places[i]);
                QVERIFY(d.szopt[i]->isEnabled());
            }
            QCOMPARE(d.cb_ok->text(), QStringLiteral("&Resize"));
            QCOMPARE(d.cb_ok->geometry(), QRect(167, 151, 130, 43));
            QCOMPARE(d.cb_cancel->text(), QStringLiteral("&Cancel"));
            QCOMPARE(d.cb_cancel->geometry(), QRect(14, 152, 130, 43));
            d.cb_cancel->click();
        });
        QVERIFY(ran);
        QCOMPARE(g->tp.modals.shown, 1);
    }

    // Each opening selects the current size and only it; every option is available.
    void dialogPreselectsCurrentSize_data()
    {
        QTest::addColumn<int>("n");
        for (int n = 2; n <= 11; ++n)
            QTest::addRow("%d", n) << n;
    }
    void dialogPreselectsCurrentSize()
    {
        QFETCH(int, n);
        auto g = game(Codes::Slide, Integer(n), false, false);
        QVERIFY(g);
        resizeWith(*g, [&](rzfrm &d) {
            QCOMPARE(d.ChosenSize, Integer(n));
            for (int i = 0; i < 10; ++i) {
                QCOMPARE(d.szopt[i]->isChecked(), i == n - 2);
                QVERIFY(d.szopt[i]->isEnabled());
            }
            d.cb_ok->click();
        });
        QCOMPARE(g->w->state().GridN, Integer(n));
    }

    // Confirming the same size, Cancel and the close box change nothing: no layout, no new puzzle.
    void unchangedSizeTouchesNothing()
    {
        auto g = game(Codes::Drag, 6, true, true);
        QVERIFY(g);
        vxmain &w = *g->w;
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
        };
        for (const auto &script : scripts) {
            resizeWith(*g, script);
            QCOMPARE(s.GridN, Integer(6));
            QCOMPARE(s.TileTotal, Integer(36));
            QVERIFY(s.Board == board);
            QCOMPARE(w.vxpcs[0]->image(), box);
            QCOMPARE(g->tp.pointers.history.size(), pointerChanges); // no scramble
            QVERIFY(s.InPlay);
        }
        // The size picked before the Cancel is forgotten.
        resizeWith(*g, [](rzfrm &d) {
            QVERIFY(d.szopt[4]->isChecked());
            QVERIFY(!d.szopt[7]->isChecked());
            QCOMPARE(d.ChosenSize, Integer(6));
        });
        QCOMPARE(g->tp.modals.shown, 4);
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
        vxmain &w = *g->w;
        const PuzzleState &s = w.state();
        resizeWith(*g, [](rzfrm &d) {
            pick(d, 11);
            d.cb_ok->click();
        });
        QCOMPARE(s.GridN, Integer(11));
        QCOMPARE(s.TileTotal, Integer(121));
        QCOMPARE(QSize(s.TileW, s.TileH), QSize(47, 35));
        QCOMPARE(w.vxrz->size(), QSize(518, 386));
        QVERIFY(s.InPlay);
        QCOMPARE(int(s.Board.size()), 122);
        QCOMPARE(s.InPlace, s.countInPlace());
        QVERIFY(s.InPlace < s.TileTotal);
        std::vector<int> homes;
        for (int p = 0; p < s.TileTotal; ++p)
            homes.push_back(s.Board[p].Home);
        std::sort(homes.begin(), homes.end());
        for (int p = 0; p < s.TileTotal; ++p)
            QCOMPARE(homes[p], p);
        QVERIFY(trayShown(w, type == Codes::Drag ? 11 : 0));
        QVERIFY(w.vxrz->image() != w.vxrz_s->image());
    }

    void newSizeWithoutPictureOnlyLaysOut()
    {
        auto g = game(Codes::Drag, 6, false, false);
        QVERIFY(g);
        vxmain &w = *g->w;
        const PuzzleState &s = w.state();
        resizeWith(*g, [](rzfrm &d) {
            pick(d, 3);
            d.cb_ok->click();
        });
        QCOMPARE(s.GridN, Integer(3));
        QCOMPARE(s.TileTotal, Integer(9));
        QCOMPARE(w.vxrz->width(), s.TileW * 3 + 1);
        QCOMPARE(w.vxrz->height(), s.TileH * 3 + 1);
        QVERIFY(trayShown(w, 3));
        QVERIFY(!s.InPlay);
        QVERIFY(!g->tp.pointers.history.contains(PointerShape::Hourglass));
    }

    void sizeButtonIgnoredWhileHintArmed()
    {
        auto g = game(Codes::Slide, 6, true, true);
        QVERIFY(g);
        g->w->cb_help_Click();
        resizeWith(*g, [](rzfrm &d) {
            pick(d, 2);
            d.cb_ok->click();
        });
        QCOMPARE(g->tp.modals.shown, 0);
        QCOMPARE(g->w->state().GridN, Integer(6));
    }
};

QTEST_MAIN(OptionsTest)
#include "tst_options.moc"
