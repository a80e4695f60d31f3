#pragma once

#include "platform/Clock.h"

#include <QElapsedTimer>
#include <optional>

namespace mervak {

// The time of day of this computer, or a fixed one: a fixed time makes the TRIA
// generator's seed and the single-click wait the same on every run.
class DryRunClock : public Clock {
public:
    explicit DryRunClock(std::optional<double> fixedSecondsSinceMidnight = std::nullopt);

    double secondsSinceMidnight() override;
    std::int64_t monotonicMs() override { return monotonic_.elapsed(); }

private:
    std::optional<double> fixed_;
    QElapsedTimer monotonic_;
};

} // namespace mervak
