#pragma once

#include "platform/WindowSystem.h"
#include "platform/wayland/SwayIpc.h"

#include <QJsonObject>

namespace mervak {

// Finds, focuses and measures windows through sway's IPC: every window, Wayland's
// and XWayland's, with its title, process and place on the screen. A window is
// known by sway's container id.
class SwayWindowSystem : public WindowSystem {
public:
    // The socket $SWAYSOCK names, or `socketPath`.
    explicit SwayWindowSystem(const QString& socketPath = {});

    bool isOpen() const { return ipc_.isOpen(); }

    // Windows in focus order, the most recently focused last.
    QList<WindowInfo> topLevelWindows() override;
    WindowId findByTitle(const QString& title) override;
    bool activate(WindowId window) override;
    WindowId activeWindow() override;
    QString title(WindowId window) override;
    std::optional<WindowRect> rect(WindowId window) override;
    QSize screenSize() override;

    // Whether the window belongs to process `pid`.
    bool belongsTo(WindowId window, qint64 pid);

    // Runs a sway command on the window (criteria added here); true when sway did.
    bool command(WindowId window, const QString& command);

private:
    QList<QJsonObject> views();
    std::optional<QJsonObject> view(WindowId window);

    SwayIpc ipc_;
};

} // namespace mervak
