// The puzzle state, its place arithmetic and the guards of the command handlers.
#include "play/puzzlestate.h"

PuzzleState::PuzzleState()
{
    for (auto &slot : Pcs)
        slot.Home = -1;
}

void PuzzleState::FindPos(float x, float y)
{
    // The test against the tile size is made on the unrounded value; only beyond it is x rounded.
    const Integer col = (x < TileW) ? Integer(0) : vb::checked16(vb::CLng(x) / TileW);
    const Integer row = (y < TileH) ? Integer(0) : vb::checked16(vb::CLng(y) / TileH);
    CurPos = vb::checked16(Long(GridN) * row + col);
}

void PuzzleState::Find_XY(Integer pos)
{
    Integer row = 0;
    Integer col = pos;
    if (pos >= GridN) {
        row = vb::checked16(pos / GridN);
        col = vb::checked16(pos % GridN);
    }
    PosY = vb::checked16(Long(row) * TileH);
    PosX = vb::checked16(Long(col) * TileW);
}

void PuzzleState::GetCRfromPos(Integer pos)
{
    if (pos >= GridN) {
        PosRow = vb::checked16(pos / GridN);
        PosCol = vb::checked16(pos % GridN);
    } else {
        PosRow = 0;
        PosCol = pos;
    }
}

void PuzzleState::GetPosFromCR(Integer c, Integer r)
{
    CurPos = vb::checked16(Long(r) * GridN + c);
}

void PuzzleState::setGridSize(Integer n)
{
    GridN = n;
    TileTotal = vb::checked16(Long(n) * n);
}

void PuzzleState::redimBoard()
{
    Board.assign(std::size_t(TileTotal) + 1, TileRec {});
}

Integer PuzzleState::countInPlace() const
{
    Integer n = 0;
    for (int p = 0; p < TileTotal && p < int(Board.size()); ++p)
        if (Board[p].Home == p)
            ++n;
    return n;
}

bool PuzzleState::allows(Command c) const
{
    // While a piece is lifted only the pointer's moves and its release act: no command may change the
    // tables or the layout under the carried piece.
    if (DragIdx >= 0)
        return false;
    const bool picture = !PicFile.isEmpty();
    switch (c) {
    case Command::NewPicture:
    case Command::Library:
    case Command::Minimise:
    case Command::LoadGame:
    case Command::Resize:
    case Command::Type:
    case Command::Grid:
        return !HintMode;
    case Command::Scramble:
        return !HintMode && picture;
    case Command::SaveGame:
    case Command::FullImage:
        return picture && InPlay && !HintMode;
    case Command::Hint:
    case Command::BoardPress:
        return picture && InPlay;
    case Command::HelpDocument:
    case Command::Exit:
        return true;
    }
    return false;
}
