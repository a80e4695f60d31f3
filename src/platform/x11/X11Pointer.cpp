#include "platform/x11/X11Pointer.h"

#include "platform/x11/X11Connection.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <algorithm>
#include <cmath>

// XInput's device-mode constant would hide PointerFlag::Absolute.
#undef Absolute

namespace mervak {

int pixelFromAbsolute(int absolute, int extent) {
    if (extent <= 0) {
        return 0;
    }
    const double pixel = std::nearbyint(static_cast<double>(absolute) * extent / 65535.0);
    return static_cast<int>(std::clamp(pixel, 0.0, static_cast<double>(extent - 1)));
}

X11Pointer::X11Pointer(X11Connection& connection) : connection_(connection) {}

QPoint X11Pointer::position() {
    if (!connection_.isOpen()) {
        return {};
    }
    Display* display = connection_.display();
    Window root = 0;
    Window child = 0;
    int rootX = 0;
    int rootY = 0;
    int x = 0;
    int y = 0;
    unsigned mask = 0;
    if (!XQueryPointer(display, DefaultRootWindow(display), &root, &child, &rootX, &rootY, &x, &y,
                       &mask)) {
        return {}; // the pointer is on another screen
    }
    return {rootX, rootY};
}

void X11Pointer::send(unsigned flags, int absoluteX, int absoluteY) {
    if (!connection_.isOpen()) {
        return;
    }
    Display* display = connection_.display();
    if ((flags & PointerFlag::Move) != 0) {
        if ((flags & PointerFlag::Absolute) != 0) {
            const int screen = DefaultScreen(display);
            XTestFakeMotionEvent(
                display, screen, pixelFromAbsolute(absoluteX, DisplayWidth(display, screen)),
                pixelFromAbsolute(absoluteY, DisplayHeight(display, screen)), CurrentTime);
        } else {
            XTestFakeRelativeMotionEvent(display, absoluteX, absoluteY, CurrentTime);
        }
    }
    struct ButtonEvent {
        unsigned flag;
        unsigned button;
        bool press;
    };
    constexpr ButtonEvent buttons[] = {{PointerFlag::LeftDown, Button1, true},
                                       {PointerFlag::LeftUp, Button1, false},
                                       {PointerFlag::RightDown, Button3, true},
                                       {PointerFlag::RightUp, Button3, false}};
    for (const ButtonEvent& event : buttons) {
        if ((flags & event.flag) != 0) {
            XTestFakeButtonEvent(display, event.button, event.press, CurrentTime);
        }
    }
    XFlush(display);
}

} // namespace mervak
