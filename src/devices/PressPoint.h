#pragma once

#include <QMetaType>
#include <cstdint>

namespace mervak {

// A press position in sheet units; 0 in either coordinate means no press.
// Each device family keeps its latest reading in one of these.
struct PressPoint {
    int16_t x = 0;
    int16_t y = 0;

    friend bool operator==(const PressPoint&, const PressPoint&) = default;
};

} // namespace mervak

Q_DECLARE_METATYPE(mervak::PressPoint)
