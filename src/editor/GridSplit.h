#pragma once

#include "template/Template.h"

#include <cstdint>

namespace mervak {

// A count shown by a scroll bar of the grid dialog: maximum - value + 1.
int16_t gridCount(int16_t maximum, int16_t value);

enum class SplitResult {
    Done,
    NothingSelected, // SelectedArea is outside 1..AreaCount: the caller beeps
    BadGrid,         // fewer than one column or row
};

// Replaces the selected Area by `columns` x `rows` Areas appended at the end of
// the array, row by row, left to right, with the source's page and content.
// Cells are (X1 - X0) / columns wide and (Y1 - Y0) / rows high, rounded down;
// the remainder is left uncovered. CurrentArea becomes PageAreaCount after the
// deletion. Throws Overflow16, changing nothing, when a coordinate or the
// Area count would not fit in 16 bits. Take an undo snapshot before calling.
SplitResult subdivideSelectedArea(Template& t, int16_t columns, int16_t rows);

} // namespace mervak
