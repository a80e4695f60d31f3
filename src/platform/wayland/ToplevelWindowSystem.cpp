#include "platform/wayland/ToplevelWindowSystem.h"

#include "platform/WindowTitleMatch.h"
#include "platform/wayland/WaylandConnection.h"
#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"

#include <wayland-client.h>

namespace mervak {

namespace {

constexpr std::uint32_t kVersion = 2;

ToplevelWindowSystem* self(void* data) {
    return static_cast<ToplevelWindowSystem*>(data);
}

const zwlr_foreign_toplevel_handle_v1_listener kHandleListener = {
    [](void* data, zwlr_foreign_toplevel_handle_v1* handle, const char* title) {
        if (auto* toplevel = self(data)->find(handle))
            toplevel->pendingTitle = QString::fromUtf8(title);
    },
    [](void*, zwlr_foreign_toplevel_handle_v1*, const char*) {},
    [](void*, zwlr_foreign_toplevel_handle_v1*, wl_output*) {},
    [](void*, zwlr_foreign_toplevel_handle_v1*, wl_output*) {},
    [](void* data, zwlr_foreign_toplevel_handle_v1* handle, wl_array* states) {
        auto* toplevel = self(data)->find(handle);
        if (toplevel == nullptr)
            return;
        toplevel->pendingActivated = false;
        const auto* state = static_cast<const std::uint32_t*>(states->data);
        for (std::size_t i = 0; i < states->size / sizeof(std::uint32_t); ++i)
            if (state[i] == ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED)
                toplevel->pendingActivated = true;
    },
    [](void* data, zwlr_foreign_toplevel_handle_v1* handle) {
        if (auto* toplevel = self(data)->find(handle)) {
            toplevel->title = toplevel->pendingTitle;
            toplevel->activated = toplevel->pendingActivated;
        }
    },
    [](void* data, zwlr_foreign_toplevel_handle_v1* handle) { self(data)->closed(handle); },
};

const zwlr_foreign_toplevel_manager_v1_listener kManagerListener = {
    [](void* data, zwlr_foreign_toplevel_manager_v1*, zwlr_foreign_toplevel_handle_v1* handle) {
        self(data)->added(handle);
    },
    [](void*, zwlr_foreign_toplevel_manager_v1*) {},
};

} // namespace

ToplevelWindowSystem::ToplevelWindowSystem(WaylandConnection& connection)
    : connection_(connection) {
    manager_ = static_cast<zwlr_foreign_toplevel_manager_v1*>(
        connection_.bind(&zwlr_foreign_toplevel_manager_v1_interface, kVersion));
    if (manager_ == nullptr)
        return;
    zwlr_foreign_toplevel_manager_v1_add_listener(manager_, &kManagerListener, this);
    connection_.roundtrip(); // the toplevels
    connection_.roundtrip(); // their details
}

ToplevelWindowSystem::~ToplevelWindowSystem() {
    if (!connection_.isOpen())
        return;
    for (const Toplevel& toplevel : std::as_const(toplevels_))
        zwlr_foreign_toplevel_handle_v1_destroy(toplevel.handle);
    if (manager_ != nullptr) {
        zwlr_foreign_toplevel_manager_v1_stop(manager_);
        zwlr_foreign_toplevel_manager_v1_destroy(manager_);
    }
    connection_.flush();
}

void ToplevelWindowSystem::added(zwlr_foreign_toplevel_handle_v1* handle) {
    toplevels_.insert(nextId_++, Toplevel{handle, {}, {}, false, false});
    zwlr_foreign_toplevel_handle_v1_add_listener(handle, &kHandleListener, this);
}

ToplevelWindowSystem::Toplevel*
ToplevelWindowSystem::find(zwlr_foreign_toplevel_handle_v1* handle) {
    for (Toplevel& toplevel : toplevels_)
        if (toplevel.handle == handle)
            return &toplevel;
    return nullptr;
}

void ToplevelWindowSystem::closed(zwlr_foreign_toplevel_handle_v1* handle) {
    for (auto toplevel = toplevels_.begin(); toplevel != toplevels_.end(); ++toplevel) {
        if (toplevel->handle == handle) {
            zwlr_foreign_toplevel_handle_v1_destroy(handle);
            toplevels_.erase(toplevel);
            return;
        }
    }
}

void ToplevelWindowSystem::refresh() {
    connection_.roundtrip();
}

QList<WindowInfo> ToplevelWindowSystem::topLevelWindows() {
    refresh();
    QList<WindowInfo> windows;
    for (auto toplevel = toplevels_.begin(); toplevel != toplevels_.end(); ++toplevel)
        if (!toplevel->title.isEmpty())
            windows.append({toplevel.key(), toplevel->title});
    return windows;
}

WindowId ToplevelWindowSystem::findByTitle(const QString& title) {
    return findWindowByTitle(topLevelWindows(), title);
}

bool ToplevelWindowSystem::activate(WindowId window) {
    refresh();
    const auto toplevel = toplevels_.find(window);
    if (toplevel == toplevels_.end() || connection_.seat() == nullptr)
        return false;
    if (!toplevel->activated) {
        zwlr_foreign_toplevel_handle_v1_activate(toplevel->handle, connection_.seat());
        refresh();
    }
    return toplevels_.contains(window);
}

WindowId ToplevelWindowSystem::activeWindow() {
    refresh();
    for (auto toplevel = toplevels_.begin(); toplevel != toplevels_.end(); ++toplevel)
        if (toplevel->activated)
            return toplevel.key();
    return kNoWindow;
}

QString ToplevelWindowSystem::title(WindowId window) {
    refresh();
    return toplevels_.value(window).title;
}

std::optional<WindowRect> ToplevelWindowSystem::rect(WindowId window) {
    refresh();
    if (!toplevels_.contains(window))
        return std::nullopt;
    const QSize screen = connection_.screenSize();
    return WindowRect{0, 0, screen.width(), screen.height()};
}

QSize ToplevelWindowSystem::screenSize() {
    return connection_.screenSize();
}

} // namespace mervak
