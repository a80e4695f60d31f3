#include "scanning/SwitchTiming.h"

namespace mervak {

void SwitchTiming::setTimes(int acceptanceMs, int longPressMs) {
    acceptanceMs_ = acceptanceMs;
    longPressMs_ = longPressMs > acceptanceMs ? longPressMs : 0;
}

std::optional<SwitchGesture> SwitchTiming::down(std::int64_t nowMs, bool ignored) {
    if (downAt_) // a key's auto-repeat
        return std::nullopt;
    downAt_ = nowMs;
    spent_ = ignored;
    return due(nowMs);
}

std::optional<SwitchGesture> SwitchTiming::up(std::int64_t nowMs) {
    if (!downAt_)
        return std::nullopt;
    const std::int64_t held = nowMs - *downAt_;
    const bool counts = !spent_ && longPressMs_ != 0 && held >= acceptanceMs_;
    downAt_.reset();
    spent_ = false;
    return counts ? std::optional(SwitchGesture::Press) : std::nullopt;
}

std::optional<SwitchGesture> SwitchTiming::due(std::int64_t nowMs) {
    if (!downAt_ || spent_)
        return std::nullopt;
    const std::int64_t held = nowMs - *downAt_;
    if (longPressMs_ == 0 && held >= acceptanceMs_) {
        spent_ = true;
        return SwitchGesture::Press;
    }
    if (longPressMs_ != 0 && held >= longPressMs_) {
        spent_ = true;
        return SwitchGesture::LongPress;
    }
    return std::nullopt;
}

std::optional<std::int64_t> SwitchTiming::nextDueMs() const {
    if (!downAt_ || spent_)
        return std::nullopt;
    return *downAt_ + (longPressMs_ != 0 ? longPressMs_ : acceptanceMs_);
}

} // namespace mervak
