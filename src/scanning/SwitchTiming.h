#pragma once

#include <cstdint>
#include <optional>

namespace mervak {

enum class SwitchGesture { Press, LongPress };

// Turns one switch's downs and ups (monotonic milliseconds) into presses: a
// switch counts once held for the acceptance time, against accidental touches.
// With a long-press time, a press counts when released (or as a long press once
// held that long); without one, as soon as it is accepted. A press that began
// while presses were ignored counts for nothing, however long it is held.
class SwitchTiming {
public:
    // A long-press time not above the acceptance time means no long press.
    void setTimes(int acceptanceMs, int longPressMs);

    // Each returns the gesture that completes at `nowMs`, if one does.
    std::optional<SwitchGesture> down(std::int64_t nowMs, bool ignored);
    std::optional<SwitchGesture> up(std::int64_t nowMs);
    std::optional<SwitchGesture> due(std::int64_t nowMs);
    // When due() may next complete a gesture.
    std::optional<std::int64_t> nextDueMs() const;
    // The press being held, if any, counts for nothing more.
    void spend() { spent_ = true; }

private:
    int acceptanceMs_ = 0;
    int longPressMs_ = 0;
    std::optional<std::int64_t> downAt_;
    bool spent_ = false;
};

} // namespace mervak
