#include "template/AreaHitTest.h"

#include <algorithm>

namespace mervak {

AreaHit FindArea(const Template& t, int16_t x, int16_t y) {
    AreaHit hit;
    // An int counter: a 16-bit one would wrap past the 32767th Area.
    for (int i = 1; i <= t.AreaCount(); ++i) {
        const Area& area = t.area(static_cast<int16_t>(i));
        if (area.Page != t.CurrentPage)
            continue;
        ++hit.ordinal;
        const auto [left, right] = std::minmax(area.X0, area.X1);
        const auto [bottom, top] = std::minmax(area.Y0, area.Y1);
        if (left <= x && x <= right && bottom <= y && y <= top) {
            hit.index = static_cast<int16_t>(i);
            return hit;
        }
    }
    return hit;
}

} // namespace mervak
