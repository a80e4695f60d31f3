#include "platform/Checked16.h"

#include <cmath>
#include <limits>

namespace mervak {

int16_t toInt16(long long value) {
    if (value < std::numeric_limits<int16_t>::min() || value > std::numeric_limits<int16_t>::max())
        throw Overflow16();
    return static_cast<int16_t>(value);
}

static double checkedWhole(double whole, double low, double high) {
    if (!std::isfinite(whole) || whole < low || whole > high)
        throw Overflow16();
    return whole;
}

int16_t roundToInt16(double value) {
    return static_cast<int16_t>(checkedWhole(std::nearbyint(value), -32768.0, 32767.0));
}

int16_t floorToInt16(double value) {
    return static_cast<int16_t>(checkedWhole(std::floor(value), -32768.0, 32767.0));
}

int32_t roundToInt32(double value) {
    return static_cast<int32_t>(checkedWhole(std::nearbyint(value), -2147483648.0, 2147483647.0));
}

} // namespace mervak
