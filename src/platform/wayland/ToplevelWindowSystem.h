#pragma once

#include "platform/WindowSystem.h"

#include <QMap>

struct zwlr_foreign_toplevel_manager_v1;
struct zwlr_foreign_toplevel_handle_v1;

namespace mervak {

class WaylandConnection;

// Finds and activates windows by title through wlroots' foreign toplevel protocol,
// as task bars do (labwc, Wayfire, Hyprland and others). The protocol tells no
// window's place: rect() knows none, so mouse positions count from the screen's
// corner. Windows are numbered in the order they appeared.
class ToplevelWindowSystem : public WindowSystem {
public:
    // The connection must outlive the window system.
    explicit ToplevelWindowSystem(WaylandConnection& connection);
    ~ToplevelWindowSystem() override;
    ToplevelWindowSystem(const ToplevelWindowSystem&) = delete;
    ToplevelWindowSystem& operator=(const ToplevelWindowSystem&) = delete;

    // False when the compositor does not offer the protocol.
    bool available() const { return manager_ != nullptr; }

    QList<WindowInfo> topLevelWindows() override;
    WindowId findByTitle(const QString& title) override;
    bool activate(WindowId window) override;
    WindowId activeWindow() override;
    QString title(WindowId window) override;
    std::optional<WindowRect> rect(WindowId window) override;
    QSize screenSize() override;

    struct Toplevel {
        zwlr_foreign_toplevel_handle_v1* handle = nullptr;
        QString title;        // as last told
        QString pendingTitle; // told, not yet done
        bool activated = false;
        bool pendingActivated = false;
    };
    // Listener entry points.
    void added(zwlr_foreign_toplevel_handle_v1* handle);
    Toplevel* find(zwlr_foreign_toplevel_handle_v1* handle);
    void closed(zwlr_foreign_toplevel_handle_v1* handle);

private:
    void refresh();

    WaylandConnection& connection_;
    zwlr_foreign_toplevel_manager_v1* manager_ = nullptr;
    QMap<WindowId, Toplevel> toplevels_;
    WindowId nextId_ = 1;
};

} // namespace mervak
