#include "template/AreaHitTest.h"

namespace mervak {

AreaHit FindArea(const Template& t, int16_t x, int16_t y) {
    AreaHit hit;
    const QList<AreaBox>& boxes = t.areaBoxes();
    const int16_t page = t.CurrentPage;
    // An int counter: a 16-bit one would wrap past the 32767th Area.
    for (int i = 0; i < boxes.size(); ++i) {
        const AreaBox& box = boxes[i];
        if (box.page != page)
            continue;
        ++hit.ordinal;
        if (box.left <= x && x <= box.right && box.bottom <= y && y <= box.top) {
            hit.index = static_cast<int16_t>(i + 1);
            return hit;
        }
    }
    return hit;
}

} // namespace mervak
