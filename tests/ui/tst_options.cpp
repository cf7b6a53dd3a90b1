// The game options: the puzzle type switch and the size dialog with what each does to the board.
#include "game.h"
#include "options/rzfrm.h"
#include "platform/facebutton.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace
{
// Runs the size command with a script played on the dialog.
void resizeWith(Game &g, std::function<void(rzfrm &)> script)
{
    g.tp.modals.script = [script](QDialog &d) { script(static_cast<rzfrm &>(d)); };
    g.w.cb_resize_Click();
}

} // namespace

class OptionsTest : public QObject
{
    Q_OBJECT

private slots:
    // The type button asks before abandoning a puzzle and keeps Tag, PuzType, face and tray in step; a
    // switch in play shows the whole picture again, one out of play lays the board out again, and one
    // whose picture is gone ends with an empty board and no picture to scramble.
    void typeSwitch_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<int>("answer"); // 0: out of play, no question expected
        QTest::addColumn<bool>("gone");
        QTest::newRow("in play, No") << Codes::Slide << MsgAnswer::No << false;
        QTest::newRow("in play, Yes, S to D") << Codes::Slide << MsgAnswer::Yes << false;
        QTest::newRow("in play, Yes, D to S") << Codes::Drag << MsgAnswer::Yes << false;
        QTest::newRow("out of play, S to D") << Codes::Slide << 0 << false;
        QTest::newRow("in play, Yes, picture gone") << Codes::Slide << MsgAnswer::Yes << true;
    }
    void typeSwitch()
    {
        QFETCH(QString, from);
        QFETCH(int, answer);
        QFETCH(bool, gone);
        Game g;
        QVERIFY(!answer || g.play(from, 4, 11));
        vxmain &w = g.w;
        const PuzzleState &s = w.state();
        const QImage board = w.vxrz->image();
        const int frameTop = w.vxframe_main->y();
        if (gone)
            QVERIFY(QFile::remove(s.PicFile));
        g.tp.messages.answers = { answer };
        w.cb_type_Click();
        const QList<AskedBox> &asked = g.tp.messages.asked;
        QVERIFY(asked.size() == (answer ? 1 : 0) + (gone ? 1 : 0)
            && (!answer || asked[0].style == MsgStyle::YesNoQuestion));
        const bool changes = answer != MsgAnswer::No;
        const QString type = changes == (from == Codes::Slide) ? Codes::Drag : Codes::Slide;
        QVERIFY(w.cb_type->Tag == type && s.PuzType == type
            && w.cb_type->face().endsWith(type == Codes::Drag ? "cb_type_d.svg" : "cb_type_s.svg"));
        QVERIFY(trayShown(w, type == Codes::Drag ? s.GridN : 0));
        QCOMPARE(s.InPlay, answer == MsgAnswer::No);
        QCOMPARE(w.vxframe_main->y() != frameTop, changes); // the tray takes room, or gives it back
        if (gone) {
            QCOMPARE(w.vxrz->image(), expectedInside(w, TileRec { 0, 0, -1 }, w.vxrz->size()));
            QVERIFY(asked[1].style == MsgStyle::Critical && !w.vxfr_t->isVisible() && s.PicFile.isEmpty());
        } else if (answer) {
            QVERIFY(
                w.vxrz->image() == (changes ? w.vxrz_s->image() : board) && w.vxfr_t->isVisible() == changes);
        }
    }

    // A new size lays the board out again and, with a picture, starts a new puzzle at once (without one,
    // play is as it was); the next opening selects it. After a drag, every tray box of a larger size
    // takes presses.
    void newSizeLaysOutAndStartsNewPuzzle_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("n");
        QTest::addColumn<bool>("picture");
        QTest::newRow("slide, 11") << Codes::Slide << 11 << true;
        QTest::newRow("drag, 8") << Codes::Drag << 8 << true;
        QTest::newRow("drag, 2, no picture") << Codes::Drag << 2 << false;
    }
    void newSizeLaysOutAndStartsNewPuzzle()
    {
        QFETCH(QString, type);
        QFETCH(int, n);
        QFETCH(bool, picture);
        Game g;
        if (!picture)
            g.w.cb_type_Click();
        QVERIFY(!picture || g.play(type, 6));
        vxmain &w = g.w;
        const PuzzleState &s = w.state();
        park(w, 5);
        resizeWith(g, [n](rzfrm &d) { d.szopt[n - 2]->click(), d.cb_ok->click(); });
        QVERIFY(s.TileTotal == n * n && s.InPlay == picture && trayShown(w, type == Codes::Drag ? n : 0));
        QCOMPARE(w.vxrz->size(), QSize(s.TileW * n + 1, s.TileH * n + 1));
        resizeWith(g, [n](rzfrm &d) { QVERIFY(d.szopt[n - 2]->isChecked()); });
        if (picture && type == Codes::Drag) {
            park(w, n - 1);
            QTest::mousePress(w.vxpcs[n - 1], Qt::LeftButton); // a disabled box takes no press
            QCOMPARE(s.DragIdx, Integer(n - 1));
            w.Form_MouseUp(0, 0);
        }
    }
};

QTEST_MAIN(OptionsTest)
#include "tst_options.moc"
