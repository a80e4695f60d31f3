#pragma once

#include "platform/WindowSystem.h"

#include <functional>

namespace mervak {

// For desktops that let no program find or activate another's windows (the
// remote desktop portal, a wlroots compositor without the foreign toplevel
// protocol): every title names the window that has the focus, and activating it
// does nothing. The user is told once that keys go to the focused window.
class FocusedWindowSystem : public WindowSystem {
public:
    static constexpr WindowId kFocusedWindow = 1;

    // `screenSize` tells the screen's size in pixels when asked.
    explicit FocusedWindowSystem(std::function<QSize()> screenSize);

    QList<WindowInfo> topLevelWindows() override;
    WindowId findByTitle(const QString& title) override;
    bool activate(WindowId window) override;
    WindowId activeWindow() override;
    // The title last searched for: the best name the focused window has.
    QString title(WindowId window) override;
    // Nothing: no window's place is known, so positions count from the screen's corner.
    std::optional<WindowRect> rect(WindowId window) override;
    QSize screenSize() override;

private:
    std::function<QSize()> screenSize_;
    QString lastTitle_;
};

} // namespace mervak
