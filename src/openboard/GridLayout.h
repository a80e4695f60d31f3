#pragma once

#include "openboard/Board.h"

#include <QList>
#include <QPoint>
#include <optional>

namespace mervak {

// The sheet spans 0..kBoardSheetUnits both ways, x to the right and y upwards,
// as the tablet reports positions.
constexpr int kBoardSheetUnits = 120;

// A rectangle in sheet units with its edges in order.
struct SheetBox {
    int left = 0;
    int bottom = 0;
    int right = 0;
    int top = 0;
    friend bool operator==(const SheetBox&, const SheetBox&) = default;
};

// Cell (row, column) of a grid that fills the sheet, row 0 at the top; edges
// rounded to whole units so that neighbours share them.
SheetBox gridCellBox(int rows, int columns, int row, int column);

// A board position (fractions from the top-left corner) on the sheet, kept
// inside it; and back.
SheetBox positionBox(const BoardPosition& position);
BoardPosition boxPosition(const SheetBox& box);

// Boxes that stand in rows and columns: each box's cell, x the column and y
// the row (0 at the top).
struct GridPlacement {
    int rows = 0;
    int columns = 0;
    QList<QPoint> cells; // one per box, in the boxes' order
};

// The grid the boxes form: their distinct horizontal spans, left to right, are
// the columns and their vertical spans, top to bottom, the rows, when no two
// spans overlap and no two boxes share a cell. No value when they do not
// form a grid.
std::optional<GridPlacement> inferGrid(const QList<SheetBox>& boxes);

// A fingerprint of where a board's buttons lie (its grid, its buttons' ids and
// positions): Mervak keeps it in the boards it writes, to know on reading one
// back whether another program has moved anything since.
QString layoutMark(const Board& board);

} // namespace mervak
