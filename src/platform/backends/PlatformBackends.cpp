#include "platform/backends/PlatformBackends.h"

#include "platform/FocusedWindowSystem.h"
#include "platform/portal/PortalInput.h"
#include "platform/portal/PortalSession.h"
#include "platform/wayland/SwayWindowSystem.h"
#include "platform/wayland/ToplevelWindowSystem.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandKeyboard.h"
#include "platform/wayland/WaylandPointer.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Keyboard.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11WindowSystem.h"

#include <QCoreApplication>
#include <QDBusConnection>

namespace mervak {

namespace {

QString focusedWindowNotice(Language language) {
    return language == Language::Spanish
               ? QStringLiteral("Este escritorio no permite encontrar las ventanas por su "
                                "título: Mervak escribe en la ventana activa")
               : QStringLiteral("Aquest escriptori no deixa trobar les finestres pel títol: "
                                "Mervak escriu a la finestra activa");
}

class X11Backends : public PlatformBackends {
public:
    explicit X11Backends(const QString& display)
        : connection_(display), keyboard_(connection_), pointer_(connection_),
          windows_(connection_) {}

    PlatformKind kind() const override { return PlatformKind::X11; }
    KeyboardOutput& keyboard() override { return keyboard_; }
    PointerOutput& pointer() override { return pointer_; }
    WindowSystem& windows() override { return windows_; }
    void setKeyDelayMs(int milliseconds) override { keyboard_.setKeyDelayMs(milliseconds); }
    std::optional<bool> isOwnWindow(WindowId) override { return std::nullopt; }
    QString notice(Language) const override { return {}; }
    void whenReady(std::function<void()> ready) override { ready(); }

private:
    X11Connection connection_;
    X11Keyboard keyboard_;
    X11Pointer pointer_;
    X11WindowSystem windows_;
};

class WaylandBackends : public PlatformBackends {
public:
    WaylandBackends() : keyboard_(connection_), pointer_(connection_) {
        if (auto sway = std::make_unique<SwayWindowSystem>(); sway->isOpen()) {
            sway_ = sway.get();
            windows_ = std::move(sway);
        } else if (auto toplevels = std::make_unique<ToplevelWindowSystem>(connection_);
                   toplevels->available()) {
            windows_ = std::move(toplevels);
        } else {
            windows_ =
                std::make_unique<FocusedWindowSystem>([this] { return connection_.screenSize(); });
            findsWindows_ = false;
        }
    }

    bool typesHere() const { return keyboard_.available() || !connection_.isOpen(); }

    PlatformKind kind() const override { return PlatformKind::Wayland; }
    KeyboardOutput& keyboard() override { return keyboard_; }
    PointerOutput& pointer() override { return pointer_; }
    WindowSystem& windows() override { return *windows_; }
    void setKeyDelayMs(int milliseconds) override { keyboard_.setKeyDelayMs(milliseconds); }
    std::optional<bool> isOwnWindow(WindowId window) override {
        if (sway_ == nullptr)
            return std::nullopt;
        return sway_->belongsTo(window, QCoreApplication::applicationPid());
    }
    QString notice(Language language) const override {
        return findsWindows_ ? QString() : focusedWindowNotice(language);
    }
    void whenReady(std::function<void()> ready) override { ready(); }

private:
    WaylandConnection connection_;
    WaylandKeyboard keyboard_;
    WaylandPointer pointer_;
    std::unique_ptr<WindowSystem> windows_;
    SwayWindowSystem* sway_ = nullptr;
    bool findsWindows_ = true;
};

class PortalBackends : public PlatformBackends {
public:
    explicit PortalBackends(const Options& options)
        : session_(QDBusConnection::sessionBus(), options.portalToken, options.keepPortalToken),
          keyboard_(session_), pointer_(session_),
          windows_([this] { return session_.streamSize(); }) {
        session_.start();
    }

    PlatformKind kind() const override { return PlatformKind::Portal; }
    KeyboardOutput& keyboard() override { return keyboard_; }
    PointerOutput& pointer() override { return pointer_; }
    WindowSystem& windows() override { return windows_; }
    void setKeyDelayMs(int) override {}
    std::optional<bool> isOwnWindow(WindowId) override { return false; }
    QString notice(Language language) const override { return focusedWindowNotice(language); }
    void whenReady(std::function<void()> ready) override {
        if (session_.state() != PortalSession::State::Starting) {
            ready();
            return;
        }
        QObject::connect(&session_, &PortalSession::finished, &session_, std::move(ready),
                         Qt::SingleShotConnection);
    }

private:
    PortalSession session_;
    PortalKeyboard keyboard_;
    PortalPointer pointer_;
    FocusedWindowSystem windows_;
};

} // namespace

std::unique_ptr<PlatformBackends> PlatformBackends::create(const Options& options) {
    const PlatformKind kind =
        choosePlatform(options.kind, options.setting, qEnvironmentVariable("WAYLAND_DISPLAY"),
                       qEnvironmentVariable("XDG_SESSION_TYPE"));
    if (kind == PlatformKind::X11)
        return std::make_unique<X11Backends>(options.x11Display);
    if (kind == PlatformKind::Portal)
        return std::make_unique<PortalBackends>(options);
    auto wayland = std::make_unique<WaylandBackends>();
    const bool forced =
        options.kind == PlatformKind::Wayland ||
        (options.kind == PlatformKind::Automatic && options.setting == PlatformKind::Wayland);
    if (forced || wayland->typesHere())
        return wayland;
    return std::make_unique<PortalBackends>(options);
}

} // namespace mervak
