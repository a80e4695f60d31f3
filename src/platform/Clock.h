#pragma once

#include <cstdint>

namespace mervak {

class Clock {
public:
    virtual ~Clock() = default;
    // Seconds since midnight, with a fraction: the classic timer value.
    virtual double secondsSinceMidnight() = 0;
    // Milliseconds of a monotonic clock, for intervals.
    virtual std::int64_t monotonicMs() = 0;
};

} // namespace mervak
