#pragma once

#include "platform/WindowSystem.h"

#include <functional>

namespace mervak {

// Keeps the window that receives the keystrokes: on every tick, the window that
// has the focus, unless it is one of the program's own.
class TargetTracker {
public:
    TargetTracker(WindowSystem& windows, std::function<bool(WindowId)> isOwnWindow)
        : windows_(windows), isOwnWindow_(std::move(isOwnWindow)) {}

    // Returns the target after looking at the focus again.
    WindowId tick(WindowId current) {
        const WindowId active = windows_.activeWindow();
        return active != kNoWindow && !isOwnWindow_(active) ? active : current;
    }

private:
    WindowSystem& windows_;
    std::function<bool(WindowId)> isOwnWindow_;
};

} // namespace mervak
