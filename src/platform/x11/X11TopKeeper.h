#pragma once

#include "platform/x11/X11Connection.h"

#include <QSocketNotifier>
#include <memory>

namespace mervak {

// Keeps one window at the top of the X stack while asked, raising it again each
// time another window is mapped or restacked. On a Wayland desktop XWayland gives
// a click to the X window highest in its own stack at that point, whatever the
// compositor shows there, and the compositor raises each X window it activates.
// Watches on a connection of its own.
class X11TopKeeper {
public:
    X11TopKeeper();

    // The window to keep on top; 0 for none.
    void keep(unsigned long window);

private:
    void readEvents();
    void raise();

    X11Connection connection_;
    std::unique_ptr<QSocketNotifier> notifier_;
    unsigned long window_ = 0;
};

} // namespace mervak
