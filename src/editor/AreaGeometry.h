#pragma once

#include "template/Area.h"

#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <cstdint>

namespace mervak {

// The sheet spans 0..kSheetUnits in both directions, x to the right and y
// upwards from the lower-left corner, as the tablet reports positions.
constexpr int16_t kSheetUnits = 120;

// An Area's rectangle with its edges in order: left <= right, bottom <= top.
struct SheetRect {
    int16_t left = 0;
    int16_t bottom = 0;
    int16_t right = 0;
    int16_t top = 0;

    int width() const { return right - left; }
    int height() const { return top - bottom; }
    friend bool operator==(const SheetRect&, const SheetRect&) = default;
};

class Template;

// The printed sheet's size in millimetres.
QSizeF sheetSizeMm(const Template& t);

// The Area's rectangle, put in order when stored with X0 > X1 or Y0 > Y1.
SheetRect rectOf(const Area& area);

// Stores the rectangle: X0 left, Y0 bottom, X1 right, Y1 top.
void setRect(Area& area, const SheetRect& rect);

// What a mouse press on a selected Area takes hold of.
enum class Grip {
    None,
    Body,
    Left,
    Right,
    Bottom,
    Top,
    BottomLeft,
    BottomRight,
    TopLeft,
    TopRight
};

// The grip under `point` (sheet units): an edge or corner when the point lies
// within `reach` units of it, the body inside, None outside.
Grip gripAt(const SheetRect& rect, QPointF point, double reach);

// `start` dragged by (dx, dy) units with `grip`. The body moves whole and stays on
// the sheet; an edge or corner moves alone, stays on the sheet, and may cross the
// opposite edge (the result is put in order again).
SheetRect dragRect(const SheetRect& start, Grip grip, int dx, int dy);

// The rectangle two points span, each first brought onto the sheet.
SheetRect spanRect(QPoint a, QPoint b);

// A sheet coordinate brought into 0..kSheetUnits.
int16_t clampToSheet(int value);

} // namespace mervak
