#pragma once

#include <QList>
#include <QRect>
#include <QSize>
#include <QString>
#include <cstdint>
#include <functional>
#include <memory>

struct wl_display;
struct wl_registry;
struct wl_seat;
struct wl_output;
class QSocketNotifier;

namespace mervak {

// One connection to the Wayland compositor, shared by the keyboard, the pointer
// and the window list. Events are read from the Qt event loop; roundtrip() reads
// them at once where an answer is needed.
class WaylandConnection {
public:
    enum class State { NotOpened, Open, Lost };

    // Connects to `displayName`, or $WAYLAND_DISPLAY when empty.
    explicit WaylandConnection(const QString& displayName = {});
    ~WaylandConnection();
    WaylandConnection(const WaylandConnection&) = delete;
    WaylandConnection& operator=(const WaylandConnection&) = delete;

    State state() const;
    bool isOpen() const { return state() == State::Open; }
    QString displayName() const { return displayName_; }

    wl_display* display() const { return display_; }
    wl_seat* seat() const { return seat_; }

    // Binds the global that offers `interface` at `version` or lower (the
    // generated interface description); nullptr when the compositor has none.
    void* bind(const void* interface, std::uint32_t version) const;
    bool offers(const char* interfaceName) const;

    // Whether the seat has a keyboard (or a pointer), any client's, as last told.
    bool seatHasKeyboard() const { return (capabilities_ & 2u) != 0; }
    bool seatHasPointer() const { return (capabilities_ & 1u) != 0; }
    // Called each time the seat's devices change.
    void onCapabilitiesChanged(std::function<void()> changed);

    // The outputs' union, in the compositor's logical pixels; empty when unknown.
    QSize screenSize() const;

    // Sends what is queued; false when the connection broke.
    bool flush();
    // Waits until the compositor has handled every request sent so far and reads
    // its events; false when the connection broke.
    bool roundtrip();
    // Calls `done` from the event loop once the compositor has handled every
    // request sent so far (at once when the connection is gone).
    void sync(std::function<void()> done);

    struct Output {
        wl_output* output = nullptr;
        std::uint32_t name = 0;
        QRect logical; // position from geometry, size from the current mode over the scale
        int scale = 1;
    };
    struct Global {
        std::uint32_t name = 0;
        QByteArray interface;
        std::uint32_t version = 0;
    };

    // Registry and seat listeners, reached from C callbacks.
    void addGlobal(std::uint32_t name, const char* interface, std::uint32_t version);
    void removeGlobal(std::uint32_t name);
    void setCapabilities(std::uint32_t capabilities);
    Output* outputOf(wl_output* output);

private:
    void dispatchPending();
    void readEvents();

    QString displayName_;
    wl_display* display_ = nullptr;
    wl_registry* registry_ = nullptr;
    wl_seat* seat_ = nullptr;
    std::uint32_t capabilities_ = 0;
    QList<Global> globals_;
    QList<Output> outputs_;
    std::function<void()> capabilitiesChanged_;
    std::unique_ptr<QSocketNotifier> notifier_;
    bool lost_ = false;
};

} // namespace mervak
