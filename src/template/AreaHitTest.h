#pragma once

#include "template/Template.h"

#include <cstdint>

namespace mervak {

struct AreaHit {
    int16_t index = 0;   // array index of the Area hit; 0 when none
    int16_t ordinal = 0; // its rank among the current page's Areas; on a miss their number
};

// The first Area of the current page, in array order, whose rectangle holds the
// point, all four edges included. A rectangle stored with X0 > X1 or Y0 > Y1 is
// taken in its normal order.
AreaHit FindArea(const Template& t, int16_t x, int16_t y);

} // namespace mervak
