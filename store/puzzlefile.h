// The puzzle file: the puzzle in progress to bytes and back, every value checked before anything is
// taken over, and the two thin functions that write the file whole and read it.
#pragma once

#include "play/puzzlestate.h"

#include <QByteArray>
#include <QSize>
#include <optional>
#include <variant>

namespace puzzlefile
{

// What the file holds of the puzzle state: enough for a game in progress to go on later.
struct SavedPuzzle {
    QString PuzType;
    Integer GridN = 0;
    Integer TileTotal = 0;
    Integer BlankPos = 0;
    Integer InPlace = 0;
    Long GridColor = 0;
    QString PicFile;
    // The places 0 .. TileTotal - 1 and the spare record, kept as it was read.
    std::vector<TileRec> Board;
    std::array<TileRec, Codes::TraySlots> Pcs {};
    bool operator==(const SavedPuzzle &) const = default;
};

// Why a file cannot be taken over, in words for the player.
struct LoadError {
    QString text;
};

// The path's length is an Int16; the path is stored as the file system's bytes (UTF-8 here).
constexpr qint64 MaxPathBytes = 32767;

// A file with a path of pathBytes bytes and tileTotal places is exactly this long.
constexpr qint64 fileSize(qint64 pathBytes, qint64 tileTotal)
{
    return 127 + pathBytes + 6 * tileTotal;
}
// No sound file is longer; a reader stops one byte after it.
constexpr qint64 MaxFileSize = fileSize(MaxPathBytes, qint64(Codes::MaxGrid) * Codes::MaxGrid);

SavedPuzzle savedFrom(const PuzzleState &s);
// The file's bytes; empty when the picture's path is too long for the format.
QByteArray encode(const SavedPuzzle &p);
QByteArray encode(const PuzzleState &s);
// The fields of a file, or what is wrong with it. Every field is checked against every other one; the
// signature is not demanded.
std::variant<SavedPuzzle, LoadError> decode(const QByteArray &bytes);
// Tiles are cut where the save left them, at the tile size of the layout a load makes for a picture of
// this size: every record that holds a tile must read inside the picture as the board holds it.
std::optional<LoadError> checkSources(const SavedPuzzle &p, QSize picture);
// Replaces the puzzle variables the file holds, and nothing else.
void takeOver(const SavedPuzzle &p, PuzzleState &s);

// Replaces the file only once the new content is whole on disk; the earlier file stays otherwise.
// Returns the reason of a failure, or an empty string.
QString writeWhole(const QString &path, const QByteArray &bytes);
// The file's bytes (at most MaxFileSize + 1 of them), or why it cannot be read.
std::variant<QByteArray, LoadError> readFile(const QString &path);

} // namespace puzzlefile
