#pragma once

#include <QList>
#include <QSize>
#include <QString>
#include <cstdint>
#include <optional>

namespace mervak {

// A top-level window. Full X11 ids: narrowing them would break targeting.
using WindowId = std::uint64_t;
constexpr WindowId kNoWindow = 0;

struct WindowRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    friend bool operator==(const WindowRect&, const WindowRect&) = default;
};

struct WindowInfo {
    WindowId id = kNoWindow;
    QString title;
};

// Finds, activates and measures the windows of other programs.
class WindowSystem {
public:
    virtual ~WindowSystem() = default;

    // Top-level windows that have a title, in stacking order (bottom first).
    virtual QList<WindowInfo> topLevelWindows() = 0;

    // The window whose title equals `title`, else the first that begins with it,
    // compared without regard to case; kNoWindow when none.
    virtual WindowId findByTitle(const QString& title) = 0;

    // Raises the window and gives it the input focus (through the window manager
    // when one runs). False when the window no longer exists.
    virtual bool activate(WindowId window) = 0;

    // The window that has the input focus now, or kNoWindow.
    virtual WindowId activeWindow() = 0;

    virtual QString title(WindowId window) = 0;

    // The window's frame on the screen in pixels; nothing when it no longer exists.
    virtual std::optional<WindowRect> rect(WindowId window) = 0;

    virtual QSize screenSize() = 0;
};

} // namespace mervak
