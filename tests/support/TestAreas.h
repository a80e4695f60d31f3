#pragma once

#include "template/Area.h"

namespace mervak::test {

// An Area with a rectangle, a page and an ActionText; every other field as new.
inline Area makeArea(int16_t x0, int16_t y0, int16_t x1, int16_t y1, int16_t page,
                     const QString& text = {}) {
    Area a;
    a.X0 = x0;
    a.Y0 = y0;
    a.X1 = x1;
    a.Y1 = y1;
    a.Page = page;
    a.ActionText = text;
    return a;
}

} // namespace mervak::test
