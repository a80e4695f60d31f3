#pragma once

#include "template/AreaCell.h"

#include <QString>
#include <cstdint>
#include <optional>

namespace mervak {

// One Area of a Template, fields in their stored order. Coordinates are in the
// sheet's own units; the rectangle may be stored with X0 > X1 or Y0 > Y1.
struct Area {
    int16_t X0 = 0;
    int16_t Y0 = 0;
    int16_t X1 = 0;
    int16_t Y1 = 0;
    int16_t Page = 0;     // 1-based number of the Page that holds the Area
    int16_t ClipFlag = 0; // clip kind: 0 text file, 1 picture; 0 once a version 1 clip is converted
    QString Clip;         // file put on the clipboard before the ActionText runs
    QString ActionText;
    int16_t Flags = 0;            // non-zero: repeated readings of a held press fire the Area again
    std::optional<AreaCell> Cell; // stored after the last Area record, not in the record

    friend bool operator==(const Area&, const Area&) = default;
};

// The phases of drawing an Area with the pen, as the device reports them.
enum DrawPhase : int { DrawStart = 0, DrawMove = 1, DrawEnd = 2 };

} // namespace mervak
