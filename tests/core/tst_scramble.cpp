// Scrambling the tile tables: walk lengths, solvable walks, random deals, and never a solved board.
#include "play/scramble.h"

#include <QTest>
#include <algorithm>
#include <set>

namespace
{
constexpr int Seeds = 150;

PuzzleState stateFor(int n, const QString &type)
{
    PuzzleState s;
    s.setGridSize(Integer(n));
    s.PuzType = type;
    s.TileW = Integer(520 / n);
    s.TileH = Integer(390 / n);
    for (TileRec &slot : s.Pcs)
        slot.Home = 3; // a stale tray the scramble must empty
    return s;
}

void addSizes()
{
    QTest::addColumn<int>("n");
    for (int n = Codes::MinGrid; n <= Codes::MaxGrid; ++n)
        QTest::addRow("%dx%d", n, n) << n;
}

bool neighbours(const PuzzleState &s, int a, int b)
{
    const int dc = std::abs(a % s.GridN - b % s.GridN), dr = std::abs(a / s.GridN - b / s.GridN);
    return dc + dr == 1;
}

// What every scramble leaves, whatever the type: a full unsolved arrangement drawn from the right
// rectangles, the spare record in place and an empty tray.
void checkTables(const PuzzleState &s)
{
    QCOMPARE(int(s.Board.size()), s.TileTotal + 1);
    QCOMPARE(s.Board[s.TileTotal].Home, s.TileTotal);
    std::vector<int> homes;
    for (int p = 0; p < s.TileTotal; ++p) {
        const TileRec &t = s.Board[p];
        homes.push_back(t.Home);
        QCOMPARE(QPoint(t.SrcX, t.SrcY), QPoint(t.Home % s.GridN * s.TileW, t.Home / s.GridN * s.TileH));
    }
    std::sort(homes.begin(), homes.end());
    for (int p = 0; p < s.TileTotal; ++p)
        QCOMPARE(homes[p], p);
    QVERIFY(s.InPlace < s.TileTotal);
    QCOMPARE(s.InPlace, s.countInPlace());
    for (const TileRec &slot : s.Pcs)
        QCOMPARE(slot.Home, Integer(-1));
}
} // namespace

class ScrambleTest : public QObject
{
    Q_OBJECT
private slots:
    // A slide scramble is a walk of the blank from the solved order: each step goes to a neighbour,
    // never straight back, for a length drawn from the size's range, and the blank ends at BlankPos.
    void slideWalkIsAValidUnsolvedWalk_data()
    {
        addSizes();
    }
    void slideWalkIsAValidUnsolvedWalk()
    {
        QFETCH(int, n);
        const WalkRange range = walkRange(n);
        int shortest = INT_MAX, longest = 0;
        for (quint32 seed = 1; seed <= Seeds; ++seed) {
            PuzzleState s = stateFor(n, Codes::Slide);
            RandomSource random(seed);
            // The pump runs once per step, before the blank moves: BlankPos is where it stands then.
            std::vector<int> path;
            const ScrambleReport report = scrambleTables(s, random, [&] { path.push_back(s.BlankPos); });
            path.push_back(s.BlankPos);
            checkTables(s);
            if (QTest::currentTestFailed())
                return;
            QCOMPARE(int(report.walkSteps.size()), report.attempts);
            for (int steps : report.walkSteps) {
                QVERIFY(steps >= range.low + 1 && steps <= range.high + 1);
                shortest = std::min(shortest, steps);
                longest = std::max(longest, steps);
            }
            // Only the last attempt's walk made the board; replaying it from the solved order gives it.
            const int start = int(path.size()) - 1 - report.walkSteps.back();
            QCOMPARE(path[start], s.TileTotal - 1);
            std::vector<int> homes(s.TileTotal);
            for (int p = 0; p < s.TileTotal; ++p)
                homes[p] = p;
            for (std::size_t i = start + 1; i < path.size(); ++i) {
                QVERIFY(neighbours(s, path[i - 1], path[i]));
                if (i >= std::size_t(start) + 2)
                    QVERIFY(path[i] != path[i - 2]);
                std::swap(homes[path[i - 1]], homes[path[i]]);
            }
            for (int p = 0; p < s.TileTotal; ++p)
                QCOMPARE(int(s.Board[p].Home), homes[p]);
            QCOMPARE(int(s.Board[s.BlankPos].Home), s.TileTotal - 1);
        }
        // The lengths spread over the whole range, not just part of it.
        const int tenth = (range.high - range.low) / 10;
        QVERIFY(shortest <= range.low + 1 + tenth);
        QVERIFY(longest >= range.high + 1 - tenth);
    }

    // A drag scramble deals every tile to exactly one place.
    void dragDealIsAnUnsolvedPermutation_data()
    {
        addSizes();
    }
    void dragDealIsAnUnsolvedPermutation()
    {
        QFETCH(int, n);
        std::set<std::vector<Integer>> deals;
        for (quint32 seed = 1; seed <= Seeds; ++seed) {
            PuzzleState s = stateFor(n, Codes::Drag);
            RandomSource random(seed);
            int pumped = 0;
            const ScrambleReport report = scrambleTables(s, random, [&] { ++pumped; });
            checkTables(s);
            if (QTest::currentTestFailed())
                return;
            QVERIFY(report.walkSteps.empty());
            QCOMPARE(pumped, 0);
            std::vector<Integer> homes;
            for (int p = 0; p < s.TileTotal; ++p)
                homes.push_back(s.Board[p].Home);
            deals.insert(homes);
        }
        // Different seeds deal differently (2 x 2 has only 23 unsolved deals).
        QVERIFY(int(deals.size()) >= std::min(Seeds / 2, 15));
    }

    // On 2 x 2 the walk circles the board, so a walk of 12 or 24 steps comes back solved and is made again.
    void twoByTwoWalkBackToSolvedIsRedone()
    {
        int redone = 0;
        for (quint32 seed = 1; seed <= 2000; ++seed) {
            PuzzleState s = stateFor(2, Codes::Slide);
            RandomSource random(seed);
            const ScrambleReport report = scrambleTables(s, random, [] {});
            QVERIFY(report.walkSteps.back() % 12 != 0);
            for (int k = 0; k + 1 < report.attempts; ++k)
                QCOMPARE(report.walkSteps[k] % 12, 0);
            if (report.attempts > 1) {
                ++redone;
                checkTables(s);
            }
        }
        QVERIFY(redone > 0);
    }
};

QTEST_GUILESS_MAIN(ScrambleTest)
#include "tst_scramble.moc"
