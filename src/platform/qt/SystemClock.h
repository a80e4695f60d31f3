#pragma once

#include "platform/Clock.h"

#include <QElapsedTimer>

namespace mervak {

// The wall clock of this computer, in local time, and a monotonic clock.
class SystemClock : public Clock {
public:
    SystemClock();
    double secondsSinceMidnight() override;
    std::int64_t monotonicMs() override;

private:
    QElapsedTimer monotonic_;
};

} // namespace mervak
