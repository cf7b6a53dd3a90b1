// Scrambling the tile tables: a random walk of the blank (type "S", always solvable) or a random deal
// (type "D"), started over until the board is not solved.
#pragma once

#include "play/puzzlestate.h"
#include "play/random.h"

#include <functional>

struct ScrambleReport {
    int attempts = 0;
    std::vector<int> walkSteps; // steps of each type "S" walk, one entry per attempt
};

// Walk lengths by board size: the walk makes M + 1 steps for M drawn from this range.
struct WalkRange {
    int low;
    int high;
};
WalkRange walkRange(int gridN);

// Rebuilds Board (with its spare record), BlankPos, InPlace and an empty tray from the solved order.
// pumpEvents runs once per walk step, where the window may process pending events.
ScrambleReport scrambleTables(PuzzleState &s, RandomSource &random, const std::function<void()> &pumpEvents);
