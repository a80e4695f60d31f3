#pragma once

#include "devices/PressPoint.h"

#include <QByteArray>
#include <optional>

namespace mervak {

// Highest coordinate the tablet sends; anything above reads as no press.
constexpr int kEasyMaxCoordinate = 119;

// What one read of the position stream leaves behind.
struct EasyReceive {
    int16_t rxMarker = 0; // 1-based position of the first "^"; 0 when there is none
    // Set when the read held a whole packet: "^" then the X and Y bytes, each
    // taken as its Windows-1252 character code. (0, 0) when either is past 119.
    std::optional<PressPoint> position;
};

// Decodes one read on its own: only the first "^" counts, so a second packet in
// the same read is dropped, and a packet cut short is dropped without waiting
// for the rest ("^" is also a valid coordinate, so the stream cannot be
// resynchronised on it). A "^" beyond position 32767 does not fit the 16-bit
// marker and the read is dropped.
EasyReceive decodeEasyRead(const QByteArray& bytes);

} // namespace mervak
