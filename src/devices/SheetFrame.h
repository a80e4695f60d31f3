#pragma once

#include "devices/PressPoint.h"
#include "platform/PrivateProfile.h"

#include <QString>
#include <cstdint>
#include <optional>

namespace mervak {

// Where the sheet lies in a device's coordinates: the device readings at the
// sheet's top-left and bottom-right corners, and whether to mirror either axis
// after that. Stored in the MERVAK.INI section named after the model (keys X0, Y0,
// X1, Y1, MirallX, MirallY); a device never calibrated has its whole active area
// as the sheet.
struct SheetFrame {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;
    bool mirrorX = false;
    bool mirrorY = false;

    // Sheet units 1..119, Y growing upwards; none outside the frame unless `clamp`.
    std::optional<PressPoint> toSheet(int32_t x, int32_t y, bool clamp = false) const;
};

constexpr int16_t kSheetMin = 1;
constexpr int16_t kSheetMax = 119;

// The model's stored calibration laid over `whole`, the device's active area:
// the corners when all four are stored, the mirror flags when set.
SheetFrame readSheetFrame(const PrivateProfile& file, const QString& model, SheetFrame whole);
bool writeSheetFrame(const PrivateProfile& file, const QString& model, const SheetFrame& frame,
                     QString* error = nullptr);
// The mirror flags alone, for a device whose whole active area is the sheet.
bool writeSheetMirror(const PrivateProfile& file, const QString& model, bool mirrorX, bool mirrorY,
                      QString* error = nullptr);

} // namespace mervak
