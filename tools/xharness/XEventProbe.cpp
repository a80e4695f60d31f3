#include "xharness/XEventProbe.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <poll.h>

namespace mervak::test {

XEventProbe::XEventProbe(const QString& display, const QString& title, const QRect& geometry) {
    display_ = XOpenDisplay(display.toLocal8Bit().constData());
    if (display_ == nullptr) {
        return;
    }
    window_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), geometry.x(), geometry.y(),
                                  geometry.width(), geometry.height(), 0, 0,
                                  WhitePixel(display_, DefaultScreen(display_)));
    const QByteArray name = title.toUtf8();
    XStoreName(display_, window_, name.constData());
    XChangeProperty(display_, window_, XInternAtom(display_, "_NET_WM_NAME", False),
                    XInternAtom(display_, "UTF8_STRING", False), 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(name.constData()),
                    static_cast<int>(name.size()));
    // Keep the place asked for even under a window manager.
    XSizeHints hints{};
    hints.flags = USPosition | USSize;
    hints.x = geometry.x();
    hints.y = geometry.y();
    hints.width = geometry.width();
    hints.height = geometry.height();
    XSetWMNormalHints(display_, window_, &hints);
    XSelectInput(display_, window_,
                 KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask);
    XMapRaised(display_, window_);
    XSync(display_, False);
}

XEventProbe::~XEventProbe() {
    if (display_ != nullptr) {
        XCloseDisplay(display_);
    }
}

std::optional<XEventProbe::Event> XEventProbe::next(int timeoutMs) {
    if (display_ == nullptr) {
        return std::nullopt;
    }
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (true) {
        while (XPending(display_) > 0) {
            XEvent event;
            XNextEvent(display_, &event);
            const auto receivedAt = std::chrono::steady_clock::now();
            if (event.type == KeyPress || event.type == KeyRelease) {
                KeySym keysym = 0;
                char text[8];
                XLookupString(&event.xkey, text, sizeof text, &keysym, nullptr);
                return Event{event.type,        event.xkey.keycode, keysym,    event.xkey.state,
                             event.xkey.x_root, event.xkey.y_root,  receivedAt};
            }
            if (event.type == ButtonPress || event.type == ButtonRelease) {
                return Event{event.type,          event.xbutton.button, 0,
                             event.xbutton.state, event.xbutton.x_root, event.xbutton.y_root,
                             receivedAt};
            }
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            return std::nullopt;
        }
        pollfd descriptor{ConnectionNumber(display_), POLLIN, 0};
        poll(&descriptor, 1, static_cast<int>(left.count()));
    }
}

} // namespace mervak::test
