// The game options: the puzzle type switch and what it does to the board (the size dialog: the soak).
#include "game.h"
#include "platform/facebutton.h"

#include <QTest>

class OptionsTest : public QObject
{
    Q_OBJECT

private slots:
    // The type button asks before abandoning a puzzle and keeps Tag, PuzType, face and tray in step; a
    // switch in play shows the whole picture again, one out of play lays the board out again, and one
    // whose picture is gone ends with an empty board and no picture to scramble.
    void typeSwitch_data()
    {
        // The type before, the answer (0: out of play, no question expected), the picture gone.
        columns<QString, int, bool>({ "from", "answer", "gone" });
        QTest::newRow("in play, No") << Codes::Slide << MsgAnswer::No << false;
        QTest::newRow("in play, Yes, S to D") << Codes::Slide << MsgAnswer::Yes << false;
        QTest::newRow("in play, Yes, D to S") << Codes::Drag << MsgAnswer::Yes << false;
        QTest::newRow("out of play, S to D") << Codes::Slide << 0 << false;
        QTest::newRow("in play, Yes, picture gone") << Codes::Slide << MsgAnswer::Yes << true;
    }
    void typeSwitch()
    {
        const auto [from, answer, gone] = fetch<QString, int, bool>("from", "answer", "gone");
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
};

QTEST_MAIN(OptionsTest)
#include "tst_options.moc"
