// The whole game state of a run: every variable with its name and width, the tile tables and the
// place arithmetic that leaves its results in the shared variables.
#pragma once

#include "play/vbmath.h"

#include <QString>
#include <array>
#include <vector>

// One tile: where its image lies in the whole picture, and its home place (-1 = no tile here).
struct TileRec {
    Integer SrcX = 0;
    Integer SrcY = 0;
    Integer Home = 0;
    bool operator==(const TileRec &) const = default;
};
static_assert(sizeof(TileRec) == 6, "a tile record is three 16-bit fields");

namespace Codes
{
inline const QString Slide = QStringLiteral("S");
inline const QString Drag = QStringLiteral("D");
inline const QString White = QStringLiteral("W");
inline const QString Black = QStringLiteral("B");
inline const QString FromTray = QStringLiteral("pcs");
inline const QString FromBoard = QStringLiteral("vxrz");
constexpr Long WhiteColor = 0xFFFFFF;
constexpr Long BlackColor = 0;
constexpr int TraySlots = 11;
constexpr Integer MinGrid = 2;
constexpr Integer MaxGrid = 11;
} // namespace Codes

// The commands and presses whose handlers begin with a guard on the state.
enum class Command {
    NewPicture,
    Library,
    Minimise,
    LoadGame,
    Resize,
    Type,
    Grid,
    Scramble,
    SaveGame,
    FullImage,
    Hint,
    HelpDocument,
    Exit,
    BoardPress,
};

class PuzzleState
{
public:
    PuzzleState();

    QString PuzType = Codes::Slide;
    bool InPlay = false;
    bool HintMode = false;
    QString LibPath;
    QString PicFile;
    QString OpenFile;
    QString OpenTitle;
    QString PzlFile;
    Integer GridN = 6;
    Integer TileTotal = 36;
    Integer InPlace = 0;
    Integer TileH = 0;
    Integer TileW = 0;
    Integer BlankPos = 0;
    Integer CurPos = 0;
    Integer PosX = 0;
    Integer PosY = 0;
    Integer PosCol = 0;
    Integer PosRow = 0;
    Integer MinState = -1;
    Long GridColor = Codes::WhiteColor;
    Integer DragIdx = -1;
    QString DragFrom;

    // Places 0 .. TileTotal - 1, plus one spare record at TileTotal that play never touches.
    std::vector<TileRec> Board;
    std::array<TileRec, Codes::TraySlots> Pcs {};
    TileRec TmpTile;

    // Place arithmetic: results are left in CurPos, PosX/PosY and PosCol/PosRow.
    void FindPos(float x, float y);
    void Find_XY(Integer pos);
    void GetCRfromPos(Integer pos);
    void GetPosFromCR(Integer c, Integer r);

    // Sets GridN and keeps TileTotal in step with it.
    void setGridSize(Integer n);
    // Recreates Board with TileTotal + 1 records, every field zero.
    void redimBoard();
    // Counts the solved places afresh (what InPlace must always equal).
    Integer countInPlace() const;
    bool isPlace(int p) const
    {
        return p >= 0 && p < TileTotal;
    }

    // The handler guards: false means the handler returns at once, silently. Nothing acts while a piece
    // is lifted (DragIdx >= 0).
    bool allows(Command c) const;
};
