#pragma once

#include <QString>

typedef struct _XDisplay Display;

namespace mervak {

// One Xlib connection shared by the keyboard, pointer and window backends, so the
// server sees their requests in the order they were made.
//
// Xlib's default handlers end the process on any protocol error (a window that
// closed a moment ago) and on a lost connection. This class installs handlers that
// record the error instead; a lost connection makes isOpen() false and the backends
// then report it rather than touch the display again.
class X11Connection {
public:
    // Opens `displayName`, or $DISPLAY when empty. Check isOpen() and error().
    explicit X11Connection(const QString& displayName = {});
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    enum class State {
        Open,
        NoDisplayNamed, // neither a name nor $DISPLAY
        NotOpened,      // the display named could not be opened
        Lost,           // it was open and the connection broke
    };

    // False when the display could not be opened or the connection was lost since.
    bool isOpen() const;
    // Open, or why the display is not usable.
    State state() const { return state_; }
    // The display asked for: the name given, else $DISPLAY.
    QString displayName() const { return displayName_; }
    // The Xlib display; valid while isOpen().
    Display* display() const { return display_; }

    // Protocol errors recorded so far on this connection. Requests that get no
    // reply report their errors only after a round trip (XSync).
    unsigned long errorCount() const { return errorCount_; }

private:
    friend struct X11ErrorHandlers;
    Display* display_ = nullptr;
    QString displayName_;
    State state_ = State::Open;
    unsigned long errorCount_ = 0;
};

// Tells whether the requests made while it lives caused a protocol error.
class X11ErrorTrap {
public:
    explicit X11ErrorTrap(X11Connection& connection);
    // Waits for the server to handle every request made so far, then answers.
    bool failed();

private:
    X11Connection& connection_;
    unsigned long errorsBefore_;
};

} // namespace mervak
