#pragma once

#include <cstdint>
#include <stdexcept>

namespace mervak {

// The one error a 16-bit overflow raises. It is caught at the boundary of the
// operation that caused it (a press, a file load, a command block), which then
// ends and leaves its state as it was.
class Overflow16 : public std::overflow_error {
public:
    Overflow16() : std::overflow_error("16-bit overflow") {}
};

// Narrows to a signed 16-bit integer, throwing Overflow16 when it does not fit.
int16_t toInt16(long long value);

// Rounds to the nearest integer, halves to even, then narrows (the classic CInt).
int16_t roundToInt16(double value);

// Rounds towards minus infinity, then narrows (the classic Int into an Integer).
int16_t floorToInt16(double value);

// Rounds halves to even into a 32-bit integer; throws Overflow16 on overflow too,
// since the caller treats every numeric overflow alike.
int32_t roundToInt32(double value);

inline int16_t add16(int16_t a, int16_t b) {
    return toInt16(static_cast<long long>(a) + b);
}
inline int16_t sub16(int16_t a, int16_t b) {
    return toInt16(static_cast<long long>(a) - b);
}
inline int16_t mul16(int16_t a, int16_t b) {
    return toInt16(static_cast<long long>(a) * b);
}

} // namespace mervak
