#pragma once

#include "platform/WindowSystem.h"

#include <QByteArray>

namespace mervak {

class X11Connection;

// Finds, activates and measures top-level windows through Xlib. With a window
// manager that follows the EWMH conventions it uses the manager's client list and
// active window; without one it walks the window tree and sets the input focus
// itself. A window that closes meanwhile is answered as missing, never as an error.
class X11WindowSystem : public WindowSystem {
public:
    // The longest activate() waits for the input focus to reach the window.
    static constexpr int kActivateTimeoutMs = 500;

    // The connection must outlive the window system.
    explicit X11WindowSystem(X11Connection& connection);

    QList<WindowInfo> topLevelWindows() override;
    WindowId findByTitle(const QString& title) override;
    // Asks the window manager (when one runs) and waits until the focus is in the
    // window; when the manager does not hand it over in time, or none runs, raises
    // the window and sets the focus directly. False when the window is gone or
    // cannot take the focus.
    bool activate(WindowId window) override;
    WindowId activeWindow() override;
    QString title(WindowId window) override;
    // The frame the window manager put around the window, or the window itself.
    std::optional<WindowRect> rect(WindowId window) override;
    // Empty when the display is gone.
    QSize screenSize() override;

    // Whether a window manager that follows the EWMH conventions runs now.
    bool windowManagerRuns();

private:
    unsigned long atom(const char* name);
    QList<unsigned long> windowList(unsigned long window, const char* property);
    QByteArray textProperty(unsigned long window, const char* property, const char* type);
    QString titleOf(unsigned long window);
    unsigned long titledWindowIn(unsigned long window, int depth);
    unsigned long rootChildOf(unsigned long window);
    bool focusIsIn(unsigned long window);
    bool waitForFocus(unsigned long window);
    bool focusDirectly(unsigned long window);

    X11Connection& connection_;
};

} // namespace mervak
