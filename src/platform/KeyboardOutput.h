#pragma once

#include "platform/KeyStroke.h"

#include <QString>
#include <functional>
#include <optional>

namespace mervak {

// Why type() sent nothing, in no language: the caller words it in the user's.
struct TypingError {
    enum class Reason {
        NoDisplayNamed,       // no display was named to connect to
        DisplayNotOpened,     // `detail`: the display's name
        DisplayLost,          // the connection to the display broke
        NoKeyboardMap,        // the keyboard map cannot be read
        KeyNotTypeable,       // `stroke`: no keyboard can type it
        NoFreeKeycode,        // `stroke`: no key is left to put it on
        NoModifierKey,        // `detail`: the modifier no key gives ("Shift", "Mod5", ...)
        CompositorNotReached, // `detail`: the Wayland display's name
        NoVirtualKeyboard,    // the Wayland compositor offers no way to type
        RemoteControlRefused, // the desktop (or the user) refused remote control
    };
    Reason reason = Reason::DisplayLost;
    KeyStroke stroke;
    QString detail;
    friend bool operator==(const TypingError&, const TypingError&) = default;
};

// Types keys into whichever window has the input focus.
class KeyboardOutput {
public:
    virtual ~KeyboardOutput() = default;

    // Types the strokes in order; nothing on success. Sends none of them and
    // says why when they could not all be sent.
    virtual std::optional<TypingError> type(const KeyStrokes& strokes) = 0;

    // Calls `done` from the event loop once the focused client has had every key
    // sent so far delivered: the "waiting" of a waiting send. Never blocks.
    virtual void flush(std::function<void()> done) = 0;

    // Calls `done` from the event loop once every key sent so far is delivered and
    // the keyboard layout is the user's again, exactly, for a process about to end.
    virtual void restoreLayout(std::function<void()> done) { flush(std::move(done)); }
};

} // namespace mervak
