#pragma once

#include "platform/WindowSystem.h"

#include <functional>

namespace mervak {

// Keeps the window that receives the keystrokes: on every tick, the window that
// has the focus, unless it is one of the program's own.
//
// While the virtual tablet is shown the target also gets the focus back, but
// only from another program's window: the teacher may be typing in one of the
// program's own windows or have its menu open, and must keep them.
class TargetTracker {
public:
    TargetTracker(WindowSystem& windows, std::function<bool(WindowId)> isOwnWindow)
        : windows_(windows), isOwnWindow_(std::move(isOwnWindow)) {}

    // Returns the target after looking at the focus again.
    WindowId tick(WindowId current) {
        const WindowId active = windows_.activeWindow();
        return active != kNoWindow && !isOwnWindow_(active) ? active : current;
    }

    // Gives the focus back to `target` when a window of another program has it.
    void reclaimFocus(WindowId target) {
        const WindowId active = windows_.activeWindow();
        if (target != kNoWindow && active != kNoWindow && active != target && !isOwnWindow_(active))
            windows_.activate(target);
    }

private:
    WindowSystem& windows_;
    std::function<bool(WindowId)> isOwnWindow_;
};

} // namespace mervak
