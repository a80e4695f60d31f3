#pragma once

#include "platform/KeyboardOutput.h"
#include "platform/Language.h"
#include "platform/PlatformChoice.h"
#include "platform/PointerOutput.h"
#include "platform/WindowSystem.h"

#include <QString>
#include <functional>
#include <memory>

namespace mervak {

// The keyboard, pointer and window backends of one kind, chosen at start-up and
// kept for the program's life.
class PlatformBackends {
public:
    struct Options {
        PlatformKind kind = PlatformKind::Automatic;    // the command line's choice
        PlatformKind setting = PlatformKind::Automatic; // MERVAK.INI's
        QString x11Display;                             // $DISPLAY when empty
        QString portalToken;                            // the restore token kept last time
        std::function<void(QString)> keepPortalToken;   // stores a new restore token
    };

    // Connects to the display or the desktop. A Wayland compositor without a
    // virtual keyboard is served by the portal. Never fails: a backend that could
    // not connect says why when asked to type.
    static std::unique_ptr<PlatformBackends> create(const Options& options);
    virtual ~PlatformBackends() = default;

    virtual PlatformKind kind() const = 0;
    virtual KeyboardOutput& keyboard() = 0;
    virtual PointerOutput& pointer() = 0;
    virtual WindowSystem& windows() = 0;

    // Pause between two keys, in milliseconds.
    virtual void setKeyDelayMs(int milliseconds) = 0;

    // Whether the window is one of this process's; nothing when the backend cannot
    // tell (X11: the caller compares its own windows' ids).
    virtual std::optional<bool> isOwnWindow(WindowId window) = 0;

    // What the user must know once about this desktop (windows cannot be found by
    // title, the desktop asks for consent), in `language`; empty when nothing.
    virtual QString notice(Language language) const = 0;

    // Calls `ready` once the backend can type: at once, or when the desktop has
    // answered the request for remote control.
    virtual void whenReady(std::function<void()> ready) = 0;
};

} // namespace mervak
