#include "platform/x11/X11TopKeeper.h"

#include <X11/Xlib.h>

namespace mervak {

X11TopKeeper::X11TopKeeper() {
    if (!connection_.isOpen())
        return;
    Display* display = connection_.display();
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    XFlush(display);
    notifier_ = std::make_unique<QSocketNotifier>(ConnectionNumber(display), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { readEvents(); });
}

void X11TopKeeper::keep(unsigned long window) {
    window_ = window;
    raise();
}

void X11TopKeeper::readEvents() {
    if (!connection_.isOpen())
        return;
    Display* display = connection_.display();
    bool covered = false;
    while (XPending(display) > 0) {
        XEvent event;
        XNextEvent(display, &event);
        // The kept window's own changes, its raising included, leave it on top.
        if (event.type == MapNotify)
            covered = covered || event.xmap.window != window_;
        else if (event.type == ConfigureNotify)
            covered = covered || event.xconfigure.window != window_;
    }
    if (covered)
        raise();
}

void X11TopKeeper::raise() {
    if (window_ == 0 || !connection_.isOpen())
        return;
    // A window closed meanwhile only records an error.
    XRaiseWindow(connection_.display(), window_);
    XFlush(connection_.display());
}

} // namespace mervak
