#pragma once

#include <QRect>
#include <QString>
#include <chrono>
#include <optional>

typedef struct _XDisplay Display;

namespace mervak::test {

// A window of our own, on its own X connection, that notes the key and button
// events it receives and when they arrived: the far end of the X tests.
class XEventProbe {
public:
    struct Event {
        int type = 0;             // KeyPress, KeyRelease, ButtonPress, ButtonRelease
        unsigned detail = 0;      // keycode or button
        unsigned long keysym = 0; // for keys: the keysym with the event's modifiers
        unsigned state = 0;       // modifier mask before the event
        int rootX = 0;
        int rootY = 0;
        std::chrono::steady_clock::time_point receivedAt;
    };

    // Shows a window titled `title` with `geometry` on `display`; check isOpen().
    XEventProbe(const QString& display, const QString& title, const QRect& geometry);
    ~XEventProbe();
    XEventProbe(const XEventProbe&) = delete;
    XEventProbe& operator=(const XEventProbe&) = delete;

    bool isOpen() const { return display_ != nullptr; }
    unsigned long window() const { return window_; }

    // The next key or button event, waiting up to `timeoutMs`; nothing on timeout.
    std::optional<Event> next(int timeoutMs);

private:
    Display* display_ = nullptr;
    unsigned long window_ = 0;
};

} // namespace mervak::test
