// The game logic on its own: rounding, and the scramble of the tile tables (walk
// lengths, solvable walks, random deals, never a solved board).
#include "play/scramble.h"
#include "table.h"

#include <QTest>
#include <numeric>
#include <set>

class CoreTest : public QObject
{
    Q_OBJECT
private slots:
    // Rounding goes half to even; narrowing to 16 bits is checked; a point's place is tested against the
    // first tile unrounded and rounded beyond it.
    void roundingAndOverflow()
    {
        PuzzleState s;
        s.setGridSize(4);
        s.TileW = 50;
        s.TileH = 40;
        s.FindPos(99.6f, 39.6f);
        QCOMPARE(int(s.CurPos), 2);
        QVERIFY(vb::CLng(2.5) == 2 && vb::CLng(3.5) == 4 && vb::CLng(-2.5) == -2 && vb::CInt(2.4999) == 2);
        QVERIFY_THROWS_EXCEPTION(std::overflow_error, vb::CInt(40000.0));
        QVERIFY_THROWS_EXCEPTION(std::overflow_error, vb::checked16(32768));
        QCOMPARE(vb::checked16(-32768), Integer(-32768));
    }

    void scrambleIsAWholeUnsolvedArrangement_data()
    {
        columns<int, QString>({ "n", "type" });
        for (const QString &type : { Codes::Slide, Codes::Drag })
            for (int n = Codes::MinGrid; n <= Codes::MaxGrid; ++n)
                QTest::addRow("%s %dx%d", qPrintable(type), n, n) << n << type;
    }
    // Either type leaves each tile on one place, cut from its home's rectangle, the spare record in
    // place, the solved places counted, an empty tray, and never a solved board. Type "S" walks the blank
    // from the solved order (so it stays solvable) to a neighbour each step, never straight back, for
    // M + 1 steps with M in the size's range, and walks again while the walk comes back solved. Type "D"
    // deals without a walk.
    void scrambleIsAWholeUnsolvedArrangement()
    {
        const auto [n, type] = fetch<int, QString>("n", "type");
        const int total = n * n, seeds = n == 2 ? 2000 : 150; // 2 x 2 walks often come back solved
        const WalkRange range = walkRange(n);
        std::vector<int> solved(total);
        std::iota(solved.begin(), solved.end(), 0);
        int shortest = INT_MAX, longest = 0, redone = 0;
        std::set<std::vector<int>> deals;
        for (quint32 seed = 1; seed <= quint32(seeds); ++seed) {
            PuzzleState s;
            s.setGridSize(Integer(n));
            s.PuzType = type;
            s.TileW = Integer(520 / n);
            s.TileH = Integer(390 / n);
            for (TileRec &slot : s.Pcs)
                slot.Home = 3; // a stale tray
            RandomSource random(seed);
            // The pump runs before each step: the walks' positions, one after the other.
            std::vector<int> path;
            const ScrambleReport report = scrambleTables(s, random, [&] { path.push_back(s.BlankPos); });
            path.push_back(s.BlankPos);

            QVERIFY(int(s.Board.size()) == total + 1 && s.Board[total].Home == total);
            std::vector<int> homes;
            for (int p = 0; p < total; ++p) {
                const TileRec &t = s.Board[p];
                homes.push_back(t.Home);
                QCOMPARE(QPoint(t.SrcX, t.SrcY), QPoint(t.Home % n * s.TileW, t.Home / n * s.TileH));
            }
            QVERIFY(homes != solved);
            QVERIFY(std::is_permutation(homes.begin(), homes.end(), solved.begin()));
            QCOMPARE(s.InPlace, s.countInPlace());
            for (const TileRec &slot : s.Pcs)
                QCOMPARE(slot.Home, Integer(-1));
            if (type == Codes::Drag) {
                QVERIFY(report.walkSteps.empty() && path.size() == 1);
                deals.insert(homes);
                continue;
            }
            QCOMPARE(int(report.walkSteps.size()), report.attempts);
            redone += report.attempts > 1;
            int start = 0;
            for (int k = 0; k < report.attempts; ++k) {
                const int steps = report.walkSteps[k];
                QVERIFY(steps > range.low && steps <= range.high + 1);
                shortest = std::min(shortest, steps);
                longest = std::max(longest, steps);
                QCOMPARE(path[start], total - 1);
                std::vector<int> walked = solved;
                for (int i = start + 1; i <= start + steps; ++i) {
                    const int a = path[i - 1], b = path[i];
                    QCOMPARE(std::abs(a % n - b % n) + std::abs(a / n - b / n), 1);
                    QVERIFY(i == start + 1 || b != path[i - 2]);
                    std::swap(walked[a], walked[b]);
                }
                start += steps;
                // Only the last walk made the board; the ones before came back solved.
                QVERIFY(walked == (k + 1 == report.attempts ? homes : solved));
            }
            QCOMPARE(start + 1, int(path.size()));
        }
        // Deals differ by seed (2 x 2 has only 23 unsolved ones); walk lengths spread over their range.
        const int tenth = (range.high - range.low) / 10;
        if (type == Codes::Drag)
            QVERIFY(int(deals.size()) >= std::min(seeds / 2, 15));
        else
            QVERIFY(
                shortest <= range.low + 1 + tenth && longest >= range.high + 1 - tenth && (n > 2 || redone));
    }
};

QTEST_GUILESS_MAIN(CoreTest)
#include "tst_core.moc"
