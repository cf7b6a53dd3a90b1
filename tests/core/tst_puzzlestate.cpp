// The puzzle state on its own: defaults, tables, place arithmetic, rounding and the handler guards.
#include "play/puzzlestate.h"

#include <QTest>

class PuzzleStateTest : public QObject
{
    Q_OBJECT
private slots:
    // A new state holds the start-up defaults and an empty tray.
    void newStateHoldsDefaults()
    {
        PuzzleState s;
        QCOMPARE(s.GridN, Integer(6));
        QCOMPARE(s.TileTotal, Integer(36));
        QCOMPARE(s.PuzType, QStringLiteral("S"));
        QCOMPARE(s.GridColor, Long(0xFFFFFF));
        QCOMPARE(s.DragIdx, Integer(-1));
        QCOMPARE(s.MinState, Integer(-1));
        QVERIFY(!s.InPlay && !s.HintMode && s.PicFile.isEmpty());
        for (const TileRec &t : s.Pcs)
            QCOMPARE(t.Home, Integer(-1));
    }

    // The board table has one spare record beyond the places.
    void boardHasSpareRecord_data()
    {
        QTest::addColumn<int>("n");
        QTest::newRow("2") << 2;
        QTest::newRow("6") << 6;
        QTest::newRow("11") << 11;
    }
    void boardHasSpareRecord()
    {
        QFETCH(int, n);
        PuzzleState s;
        s.setGridSize(Integer(n));
        s.redimBoard();
        QCOMPARE(int(s.TileTotal), n * n);
        QCOMPARE(int(s.Board.size()), n * n + 1);
        QCOMPARE(s.countInPlace(), Integer(1)); // after a redim only place 0 holds its home, 0
    }

    // Points, places, columns and rows convert as the board's pixels lie.
    void placeArithmeticOnFourByFour()
    {
        PuzzleState s;
        s.setGridSize(4);
        s.TileW = 50;
        s.TileH = 40;
        const struct {
            float x, y;
            int pos;
        } points[] = { { 0, 0, 0 }, { 49, 39, 0 }, { 50, 0, 1 }, { 199, 159, 15 }, { 100, 40, 6 },
            { 49.6f, 0, 0 }, { 99.6f, 0, 2 } };
        for (const auto &p : points) {
            s.FindPos(p.x, p.y);
            QCOMPARE(int(s.CurPos), p.pos);
        }
        s.Find_XY(3);
        QCOMPARE(QPoint(s.PosX, s.PosY), QPoint(150, 0));
        s.Find_XY(4);
        QCOMPARE(QPoint(s.PosX, s.PosY), QPoint(0, 40));
        s.Find_XY(15);
        QCOMPARE(QPoint(s.PosX, s.PosY), QPoint(150, 120));
        // The board's last pixel column lies beyond the last column.
        s.FindPos(200, 0);
        QCOMPARE(int(s.CurPos), 4);
        for (Integer r = 0; r < 4; ++r)
            for (Integer c = 0; c < 4; ++c) {
                s.GetPosFromCR(c, r);
                s.GetCRfromPos(s.CurPos);
                QCOMPARE(QPoint(s.PosCol, s.PosRow), QPoint(c, r));
            }
    }

    // Rounding goes half to even; narrowing to 16 bits is checked.
    void roundingAndOverflow()
    {
        QCOMPARE(vb::CLng(2.5), Long(2));
        QCOMPARE(vb::CLng(3.5), Long(4));
        QCOMPARE(vb::CLng(-2.5), Long(-2));
        QCOMPARE(vb::CLng(292.5), Long(292));
        QCOMPARE(vb::CInt(2.4999), Integer(2));
        QVERIFY_THROWS_EXCEPTION(std::overflow_error, vb::CInt(40000.0));
        QVERIFY_THROWS_EXCEPTION(std::overflow_error, vb::checked16(32768));
        QCOMPARE(vb::checked16(-32768), Integer(-32768));
    }

    // Each command acts only in the states its guard allows.
    void guardsFollowTheTable()
    {
        PuzzleState s;
        QVERIFY(s.allows(Command::NewPicture) && s.allows(Command::Type) && s.allows(Command::Exit));
        QVERIFY(!s.allows(Command::Scramble) && !s.allows(Command::SaveGame) && !s.allows(Command::Hint));
        QVERIFY(!s.allows(Command::BoardPress) && !s.allows(Command::FullImage));
        s.PicFile = QStringLiteral("/x.jpg");
        QVERIFY(s.allows(Command::Scramble) && !s.allows(Command::SaveGame));
        s.InPlay = true;
        QVERIFY(s.allows(Command::SaveGame) && s.allows(Command::FullImage) && s.allows(Command::Hint));
        QVERIFY(s.allows(Command::BoardPress));
        s.HintMode = true;
        for (Command c :
            { Command::NewPicture, Command::Library, Command::Minimise, Command::LoadGame, Command::Resize,
                Command::Type, Command::Grid, Command::Scramble, Command::SaveGame, Command::FullImage })
            QVERIFY(!s.allows(c));
        QVERIFY(s.allows(Command::Hint) && s.allows(Command::HelpDocument) && s.allows(Command::Exit));
        QVERIFY(s.allows(Command::BoardPress)); // presses go to the hint while it is armed
    }
};

QTEST_GUILESS_MAIN(PuzzleStateTest)
#include "tst_puzzlestate.moc"
