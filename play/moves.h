// The rules of the two kinds of moves: which place a point or a drop falls on, which tile may slide,
// and the exchange of two holders with the count of solved places kept up to date.
#pragma once

#include "play/puzzlestate.h"

#include <QPointF>
#include <QRect>
#include <span>

// The place under a board point. A point on the board box's extra last pixel column or row counts as
// the last column or row, so no press or drop ever lands off the grid.
Integer placeAt(PuzzleState &s, float x, float y);

// Type "S": the blank's place when it stands directly beside place P, otherwise -1.
Integer blankBeside(PuzzleState &s, Integer P);
// Type "S": the tile on P slides into the blank's place Q.
void slideTile(PuzzleState &s, Integer P, Integer Q);

// A holder of a piece: a board place or a tray slot.
struct Holder {
    enum Kind { Board, Tray } kind;
    int index;
    bool operator==(const Holder &) const = default;
};
TileRec &recordOf(PuzzleState &s, Holder h);
// Exchanges the records of two holders; InPlace follows the board places involved.
void exchangeHolders(PuzzleState &s, Holder from, Holder to);

// Where a drop lands: the board, a tray box, or nowhere (the piece goes back).
struct DropTarget {
    enum Kind { Nowhere, Board, Tray } kind = Nowhere;
    int tray = -1;
    QPoint point; // the drop point (the drag image's top-left corner), in window pixels
};
// pointer is the release point in window pixels; the tray boxes are tested in order.
DropTarget findDropTarget(QPointF pointer, const QRect &board, std::span<const QRect> trayBoxes);
