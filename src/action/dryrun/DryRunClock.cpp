#include "action/dryrun/DryRunClock.h"

#include <QTime>

namespace mervak {

DryRunClock::DryRunClock(std::optional<double> fixedSecondsSinceMidnight)
    : fixed_(fixedSecondsSinceMidnight) {
    monotonic_.start();
}

double DryRunClock::secondsSinceMidnight() {
    if (fixed_)
        return *fixed_;
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

} // namespace mervak
