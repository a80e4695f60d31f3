#pragma once

#include "platform/Clock.h"

namespace mervak::test {

// Time that moves only when a test moves it.
class FakeClock : public Clock {
public:
    void setSecondsSinceMidnight(double seconds) { seconds_ = seconds; }
    // Moves both clocks forward.
    void advanceMs(std::int64_t ms) {
        monotonicMs_ += ms;
        seconds_ += static_cast<double>(ms) / 1000.0;
    }

    double secondsSinceMidnight() override { return seconds_; }
    std::int64_t monotonicMs() override { return monotonicMs_; }

private:
    double seconds_ = 0.0;
    std::int64_t monotonicMs_ = 0;
};

} // namespace mervak::test
