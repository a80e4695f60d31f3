#pragma once

#include "platform/WindowSystem.h"

#include <QByteArray>

namespace mervak {

class X11Connection;

// Finds, activates and measures top-level windows through Xlib. With a window
// manager that follows the EWMH conventions it uses the manager's client list and
// active window; without one it walks the window tree and sets the input focus
// itself. A window that closes meanwhile is answered as missing, never as an error.
//
// Every request that waits for the server costs a round trip, and a press goes
// through findByTitle() and activate(): so the window found for a whole title is
// remembered, and whether a manager runs is looked at again only when a full
// search is made or the manager does not hand over the focus.
class X11WindowSystem : public WindowSystem {
public:
    // The longest activate() waits for the input focus to reach the window.
    static constexpr int kActivateTimeoutMs = 500;

    // The connection must outlive the window system.
    explicit X11WindowSystem(X11Connection& connection);

    QList<WindowInfo> topLevelWindows() override;
    // A window whose whole title is `title` is given again, with one look at its
    // title, while it keeps that title: of two windows alike, the one found first
    // stays. A title found as a beginning is searched for each time, since a window
    // with the whole title would win over it.
    WindowId findByTitle(const QString& title) override;
    // True at once when the focus is in the window already. Else asks the window
    // manager (when one runs) and waits until the focus is in the window; when the
    // manager does not hand it over in time, or none runs, raises the window and
    // sets the focus directly. False when the window is gone or cannot take the focus.
    bool activate(WindowId window) override;
    WindowId activeWindow() override;
    QString title(WindowId window) override;
    // The frame the window manager put around the window, or the window itself.
    std::optional<WindowRect> rect(WindowId window) override;
    // Empty when the display is gone.
    QSize screenSize() override;

    // Whether a window manager that follows the EWMH conventions runs, as last seen.
    bool windowManagerRuns();

private:
    void lookForWindowManager();
    unsigned long atom(const char* name);
    QList<unsigned long> windowList(unsigned long window, const char* property);
    QByteArray textProperty(unsigned long window, const char* property, const char* type);
    QString titleOf(unsigned long window);
    unsigned long titledWindowIn(unsigned long window, int depth);
    unsigned long rootChildOf(unsigned long window);
    bool focusIsIn(unsigned long window);
    bool waitForFocus(unsigned long window);
    bool focusDirectly(unsigned long window);
    bool focusOn(unsigned long window);

    X11Connection& connection_;
    std::optional<bool> managerRuns_; // not looked at yet when empty
    QString foundTitle_;              // the last whole title searched for
    unsigned long foundWindow_ = 0;   // the window that had it
};

} // namespace mervak
