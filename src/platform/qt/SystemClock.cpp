#include "platform/qt/SystemClock.h"

#include <QTime>

namespace mervak {

SystemClock::SystemClock() {
    monotonic_.start();
}

double SystemClock::secondsSinceMidnight() {
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

std::int64_t SystemClock::monotonicMs() {
    return monotonic_.elapsed();
}

} // namespace mervak
