#pragma once

#include "template/Template.h"

#include <QList>
#include <cstdint>

namespace mervak {

// An Area as scanning offers it, with a point of the sheet that a press there
// fires it: the hit test gives that Area and no earlier one that overlaps it.
struct ScanItem {
    int16_t area = 0; // array index
    int16_t x = 0;
    int16_t y = 0;
    friend bool operator==(const ScanItem&, const ScanItem&) = default;
};
using ScanRow = QList<ScanItem>;

// The Areas of the current page in rows, top to bottom, each left to right,
// whatever their sizes: an Area belongs to a row when its middle lies within the
// height of every Area already in it. Areas that do nothing when pressed (no
// ActionText, no clip) and Areas wholly covered by earlier ones are left out.
QList<ScanRow> scanRows(const Template& t);

} // namespace mervak
