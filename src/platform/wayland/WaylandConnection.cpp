#include "platform/wayland/WaylandConnection.h"

#include <QSocketNotifier>
#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <wayland-client.h>

namespace mervak {

namespace {

constexpr std::uint32_t kSeatVersion = 5;
constexpr std::uint32_t kOutputVersion = 2;

WaylandConnection* self(void* data) {
    return static_cast<WaylandConnection*>(data);
}

const wl_registry_listener kRegistryListener = {
    [](void* data, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t version) {
        self(data)->addGlobal(name, interface, version);
    },
    [](void* data, wl_registry*, std::uint32_t name) { self(data)->removeGlobal(name); },
};

const wl_seat_listener kSeatListener = {
    [](void* data, wl_seat*, std::uint32_t capabilities) {
        self(data)->setCapabilities(capabilities);
    },
    [](void*, wl_seat*, const char*) {},
};

const wl_output_listener kOutputListener = {
    [](void* data, wl_output* output, std::int32_t x, std::int32_t y, std::int32_t, std::int32_t,
       std::int32_t, const char*, const char*, std::int32_t) {
        if (WaylandConnection::Output* known = self(data)->outputOf(output))
            known->logical.moveTopLeft({x, y});
    },
    [](void* data, wl_output* output, std::uint32_t flags, std::int32_t width, std::int32_t height,
       std::int32_t) {
        WaylandConnection::Output* known = self(data)->outputOf(output);
        if (known != nullptr && (flags & WL_OUTPUT_MODE_CURRENT) != 0)
            known->logical.setSize({width, height});
    },
    [](void*, wl_output*) {},
    [](void* data, wl_output* output, std::int32_t scale) {
        if (WaylandConnection::Output* known = self(data)->outputOf(output))
            known->scale = std::max(1, scale);
    },
    [](void*, wl_output*, const char*) {},
    [](void*, wl_output*, const char*) {},
};

const wl_callback_listener kSyncListener = {
    [](void* data, wl_callback* callback, std::uint32_t) {
        auto* done = static_cast<std::function<void()>*>(data);
        wl_callback_destroy(callback);
        (*done)();
        delete done; // NOLINT(cppcoreguidelines-owning-memory): handed over to the callback
    },
};

} // namespace

WaylandConnection::WaylandConnection(const QString& displayName)
    : displayName_(displayName.isEmpty() ? qEnvironmentVariable("WAYLAND_DISPLAY") : displayName) {
    if (displayName_.isEmpty())
        return;
    display_ = wl_display_connect(displayName_.toLocal8Bit().constData());
    if (display_ == nullptr)
        return;
    registry_ = wl_display_get_registry(display_);
    wl_registry_add_listener(registry_, &kRegistryListener, this);
    roundtrip(); // the globals
    roundtrip(); // the seat's capabilities and the outputs' modes
    notifier_ =
        std::make_unique<QSocketNotifier>(wl_display_get_fd(display_), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readEvents(); });
}

WaylandConnection::~WaylandConnection() {
    if (display_ == nullptr)
        return;
    notifier_.reset();
    for (const Output& output : outputs_)
        wl_output_destroy(output.output);
    if (seat_ != nullptr)
        wl_seat_destroy(seat_);
    wl_registry_destroy(registry_);
    wl_display_flush(display_);
    wl_display_disconnect(display_);
}

WaylandConnection::State WaylandConnection::state() const {
    if (display_ == nullptr)
        return State::NotOpened;
    return lost_ || wl_display_get_error(display_) != 0 ? State::Lost : State::Open;
}

void WaylandConnection::addGlobal(std::uint32_t name, const char* interface,
                                  std::uint32_t version) {
    globals_.append({name, interface, version});
    if (seat_ == nullptr && std::string_view(interface) == wl_seat_interface.name) {
        seat_ = static_cast<wl_seat*>(
            wl_registry_bind(registry_, name, &wl_seat_interface, std::min(version, kSeatVersion)));
        wl_seat_add_listener(seat_, &kSeatListener, this);
    } else if (std::string_view(interface) == wl_output_interface.name) {
        auto* output = static_cast<wl_output*>(wl_registry_bind(
            registry_, name, &wl_output_interface, std::min(version, kOutputVersion)));
        outputs_.append({output, name, {}, 1});
        wl_output_add_listener(output, &kOutputListener, this);
    }
}

void WaylandConnection::removeGlobal(std::uint32_t name) {
    globals_.removeIf([name](const Global& global) { return global.name == name; });
    for (qsizetype i = 0; i < outputs_.size(); ++i) {
        if (outputs_[i].name == name) {
            wl_output_destroy(outputs_[i].output);
            outputs_.removeAt(i);
            return;
        }
    }
}

void WaylandConnection::setCapabilities(std::uint32_t capabilities) {
    capabilities_ = capabilities;
    if (capabilitiesChanged_)
        capabilitiesChanged_();
}

WaylandConnection::Output* WaylandConnection::outputOf(wl_output* output) {
    for (Output& known : outputs_)
        if (known.output == output)
            return &known;
    return nullptr;
}

void WaylandConnection::onCapabilitiesChanged(std::function<void()> changed) {
    capabilitiesChanged_ = std::move(changed);
}

bool WaylandConnection::offers(const char* interfaceName) const {
    return std::any_of(globals_.begin(), globals_.end(), [interfaceName](const Global& global) {
        return global.interface == interfaceName;
    });
}

void* WaylandConnection::bind(const void* interface, std::uint32_t version) const {
    const auto* wanted = static_cast<const wl_interface*>(interface);
    if (!const_cast<WaylandConnection*>(this)->isOpen())
        return nullptr;
    for (const Global& global : globals_)
        if (global.interface == wanted->name)
            return wl_registry_bind(registry_, global.name, wanted,
                                    std::min(version, global.version));
    return nullptr;
}

QSize WaylandConnection::screenSize() const {
    QRect all;
    for (const Output& output : outputs_)
        all |= QRect(output.logical.topLeft(), output.logical.size() / output.scale);
    return all.isEmpty() ? QSize() : QSize(all.right() + 1, all.bottom() + 1);
}

bool WaylandConnection::flush() {
    if (!isOpen())
        return false;
    if (wl_display_flush(display_) < 0 && errno != EAGAIN)
        lost_ = true;
    return !lost_;
}

bool WaylandConnection::roundtrip() {
    if (!isOpen())
        return false;
    if (wl_display_roundtrip(display_) < 0)
        lost_ = true;
    return !lost_;
}

void WaylandConnection::sync(std::function<void()> done) {
    if (!isOpen()) {
        done();
        return;
    }
    wl_callback* callback = wl_display_sync(display_);
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): freed by the listener
    wl_callback_add_listener(callback, &kSyncListener, new std::function<void()>(std::move(done)));
    flush();
}

// Reads without blocking: a roundtrip may have read the events already.
void WaylandConnection::readEvents() {
    if (!isOpen())
        return;
    while (wl_display_prepare_read(display_) != 0) {
        dispatchPending();
        if (lost_) {
            notifier_->setEnabled(false);
            return;
        }
    }
    pollfd readable{wl_display_get_fd(display_), POLLIN, 0};
    if (poll(&readable, 1, 0) > 0) {
        if (wl_display_read_events(display_) < 0)
            lost_ = true;
    } else {
        wl_display_cancel_read(display_);
    }
    dispatchPending();
    if (lost_ || !flush())
        notifier_->setEnabled(false);
}

void WaylandConnection::dispatchPending() {
    if (wl_display_dispatch_pending(display_) < 0)
        lost_ = true;
}

} // namespace mervak
