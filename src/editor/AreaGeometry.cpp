#include "editor/AreaGeometry.h"

#include "template/Template.h"

#include <algorithm>
#include <cmath>

namespace mervak {

namespace {

bool near(double value, double edge, double reach) {
    return std::abs(value - edge) <= reach;
}

// The list form of std::minmax returns values; the two-argument form would return
// references to these temporaries, dead before they are read.
SheetRect ordered(int left, int bottom, int right, int top) {
    const auto [l, r] = std::minmax({clampToSheet(left), clampToSheet(right)});
    const auto [b, t] = std::minmax({clampToSheet(bottom), clampToSheet(top)});
    return {l, b, r, t};
}

// The body keeps its size; the move stops where an edge meets the sheet's border.
SheetRect moved(const SheetRect& r, int dx, int dy) {
    dx = std::clamp(dx, -static_cast<int>(r.left), kSheetUnits - r.right);
    dy = std::clamp(dy, -static_cast<int>(r.bottom), kSheetUnits - r.top);
    return ordered(r.left + dx, r.bottom + dy, r.right + dx, r.top + dy);
}

} // namespace

int16_t clampToSheet(int value) {
    return static_cast<int16_t>(std::clamp(value, 0, static_cast<int>(kSheetUnits)));
}

QSizeF sheetSizeMm(const Template& t) {
    return {static_cast<qreal>(t.SheetWidthMm), static_cast<qreal>(t.SheetHeightMm)};
}

SheetRect rectOf(const Area& area) {
    const auto [left, right] = std::minmax(area.X0, area.X1);
    const auto [bottom, top] = std::minmax(area.Y0, area.Y1);
    return {left, bottom, right, top};
}

void setRect(Area& area, const SheetRect& rect) {
    area.X0 = rect.left;
    area.Y0 = rect.bottom;
    area.X1 = rect.right;
    area.Y1 = rect.top;
}

Grip gripAt(const SheetRect& r, QPointF p, double reach) {
    const bool insideX = p.x() >= r.left - reach && p.x() <= r.right + reach;
    const bool insideY = p.y() >= r.bottom - reach && p.y() <= r.top + reach;
    if (!insideX || !insideY)
        return Grip::None;
    // On a thin Area both edges are in reach: the nearer one wins.
    const bool left = near(p.x(), r.left, reach) && p.x() - r.left <= r.right - p.x();
    const bool right = near(p.x(), r.right, reach) && !left;
    const bool bottom = near(p.y(), r.bottom, reach) && p.y() - r.bottom <= r.top - p.y();
    const bool top = near(p.y(), r.top, reach) && !bottom;
    if (bottom)
        return left ? Grip::BottomLeft : right ? Grip::BottomRight : Grip::Bottom;
    if (top)
        return left ? Grip::TopLeft : right ? Grip::TopRight : Grip::Top;
    if (left)
        return Grip::Left;
    if (right)
        return Grip::Right;
    return Grip::Body;
}

SheetRect dragRect(const SheetRect& s, Grip grip, int dx, int dy) {
    int left = s.left, bottom = s.bottom, right = s.right, top = s.top;
    switch (grip) {
    case Grip::None:
        return s;
    case Grip::Body:
        return moved(s, dx, dy);
    case Grip::Left:
        left += dx;
        break;
    case Grip::Right:
        right += dx;
        break;
    case Grip::Bottom:
        bottom += dy;
        break;
    case Grip::Top:
        top += dy;
        break;
    case Grip::BottomLeft:
        left += dx;
        bottom += dy;
        break;
    case Grip::BottomRight:
        right += dx;
        bottom += dy;
        break;
    case Grip::TopLeft:
        left += dx;
        top += dy;
        break;
    case Grip::TopRight:
        right += dx;
        top += dy;
        break;
    }
    return ordered(left, bottom, right, top);
}

SheetRect spanRect(QPoint a, QPoint b) {
    return ordered(a.x(), a.y(), b.x(), b.y());
}

} // namespace mervak
