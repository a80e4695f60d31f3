#pragma once

#include "platform/PrivateProfile.h"

#include <QString>
#include <cstdint>

namespace mervak {

// The marker's colour as the camera sees it, 8-bit RGB.
struct MarkerColour {
    uint8_t r = 200;
    uint8_t g = 20;
    uint8_t b = 20;
    bool operator==(const MarkerColour&) const = default;
};

// The tracker's own keys of [WEBCAM], beside the calibration.
struct TrackerSettings {
    // A device path, a .y4m file, or empty for the first camera.
    QString camera;
    // Without a setting the tracker follows a saturated red.
    MarkerColour colour;
    // Smaller coloured patches are noise, in pixels of the 640 x 480 frame.
    int minimumArea = 40;
    // How long the marker must rest on an Area before it fires; 0 = at once.
    int dwellMs = 0;
};

TrackerSettings readTrackerSettings(const PrivateProfile& ini);
bool writeMarkerColour(const PrivateProfile& ini, MarkerColour colour, QString* error = nullptr);
bool writeDwellMs(const PrivateProfile& ini, int dwellMs, QString* error = nullptr);

} // namespace mervak
