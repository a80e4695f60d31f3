#pragma once

#include "platform/WindowSystem.h"
#include "support/EffectLog.h"

#include <QList>

namespace mervak::test {

// A desktop of made-up windows. findByTitle matches exactly, else by the
// beginning, without regard to case, as the real one does. Logs
// "activate <title>" for each successful activation.
class FakeWindowSystem : public WindowSystem {
public:
    explicit FakeWindowSystem(EffectLog* log = nullptr) : log_(log) {}

    // Adds a window on top of the others and returns its id (1, 2, ...).
    WindowId addWindow(const QString& title, const WindowRect& rect = {});
    void removeWindow(WindowId window);
    // The window has the focus, as if the user had clicked it.
    void focus(WindowId window) { active_ = window; }
    // activate() fails for the window, as for one that is not shown.
    void refuseFocus(WindowId window) { refusing_.append(window); }
    void setScreenSize(const QSize& size) { screen_ = size; }

    // Every successful activation, in order.
    const QList<WindowId>& activations() const { return activations_; }

    QList<WindowInfo> topLevelWindows() override;
    WindowId findByTitle(const QString& title) override;
    bool activate(WindowId window) override;
    WindowId activeWindow() override { return active_; }
    QString title(WindowId window) override;
    std::optional<WindowRect> rect(WindowId window) override;
    QSize screenSize() override { return screen_; }

private:
    struct Window {
        WindowInfo info;
        WindowRect rect;
    };
    const Window* find(WindowId window) const;

    EffectLog* log_;
    QList<Window> windows_;
    QList<WindowId> activations_;
    QList<WindowId> refusing_;
    WindowId active_ = kNoWindow;
    WindowId nextId_ = 1;
    QSize screen_{1024, 768};
};

} // namespace mervak::test
