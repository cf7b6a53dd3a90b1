// The scramble of the tile tables; the window draws the result.
#include "play/scramble.h"

namespace
{
enum Direction { Up = 1, Down = 2, Left = 3, Right = 4 };

int opposite(int d)
{
    return d == Up ? Down : d == Down ? Up : d == Left ? Right : Left;
}

int walkSteps(PuzzleState &s, RandomSource &random, const std::function<void()> &pumpEvents)
{
    const float r = random.next();
    int M;
    if (s.GridN < 4)
        M = int(r * 25 + 10);
    else if (s.GridN <= 6)
        M = int(r * 85 + 60);
    else
        M = int(r * 165 + 140);
    random.reseedFromClock();
    int forbidden = -1;
    for (int step = 0; step <= M; ++step) {
        s.GetCRfromPos(s.BlankPos);
        const bool possible[5]
            = { false, s.PosRow > 0, s.PosRow<s.GridN - 1, s.PosCol> 0, s.PosCol < s.GridN - 1 };
        int d;
        do
            d = std::min(int(random.next() * 4 + 1), 4);
        while (d == forbidden || !possible[d]);
        switch (d) {
        case Up:
            --s.PosRow;
            break;
        case Down:
            ++s.PosRow;
            break;
        case Left:
            --s.PosCol;
            break;
        default:
            ++s.PosCol;
        }
        pumpEvents();
        forbidden = opposite(d);
        s.GetPosFromCR(s.PosCol, s.PosRow);
        std::swap(s.Board[s.BlankPos].Home, s.Board[s.CurPos].Home);
        s.BlankPos = s.CurPos;
    }
    return M + 1;
}

void deal(PuzzleState &s, RandomSource &random, std::vector<bool> &dealt)
{
    for (int i = 0; i < s.TileTotal; ++i) {
        int k;
        do
            k = std::min(int(double(s.TileTotal) * double(random.next())), s.TileTotal - 1);
        while (dealt[k]);
        dealt[k] = true;
        s.Board[i].Home = Integer(k);
    }
}
} // namespace

WalkRange walkRange(int gridN)
{
    if (gridN < 4)
        return { 10, 34 };
    if (gridN <= 6)
        return { 60, 144 };
    return { 140, 304 };
}

ScrambleReport scrambleTables(PuzzleState &s, RandomSource &random, const std::function<void()> &pumpEvents)
{
    ScrambleReport report;
    std::vector<bool> dealt;
    s.redimBoard();
    do {
        ++report.attempts;
        dealt.assign(std::size_t(s.TileTotal) + 1, false);
        for (int i = 0; i <= s.TileTotal; ++i)
            s.Board[i].Home = Integer(i);
        s.BlankPos = Integer(s.TileTotal - 1);
        random.reseedFromClock();
        if (s.PuzType == Codes::Slide)
            report.walkSteps.push_back(walkSteps(s, random, pumpEvents));
        else
            deal(s, random, dealt);
        // A tile's image lies at its home's rectangle of the whole picture.
        s.InPlace = 0;
        for (Integer i = 0; i < s.TileTotal; ++i) {
            if (s.Board[i].Home == i)
                ++s.InPlace;
            s.Find_XY(s.Board[i].Home);
            s.Board[i].SrcX = s.PosX;
            s.Board[i].SrcY = s.PosY;
        }
    } while (s.InPlace == s.TileTotal);
    for (TileRec &slot : s.Pcs)
        slot.Home = -1;
    return report;
}
