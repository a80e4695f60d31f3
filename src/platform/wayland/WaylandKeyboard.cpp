#include "platform/wayland/WaylandKeyboard.h"

#include "platform/wayland/WaylandConnection.h"
#include "virtual-keyboard-unstable-v1-client-protocol.h"

#include <algorithm>
#include <sys/mman.h>
#include <thread>
#include <unistd.h>
#include <wayland-client.h>

namespace mervak {

namespace {

// The longest the first key waits for a seat that never says it has a keyboard.
constexpr int kSeatAnswerMs = 1000;

// The keymap in an anonymous file, as the protocol hands it over; -1 on failure.
int keymapFile(const QByteArray& text) {
    const int fd = memfd_create("mervak-keymap", MFD_CLOEXEC);
    if (fd < 0)
        return -1;
    const auto size = static_cast<ssize_t>(text.size() + 1); // with its terminating zero
    if (write(fd, text.constData(), size) != size) {
        close(fd);
        return -1;
    }
    return fd;
}

} // namespace

WaylandKeyboard::WaylandKeyboard(WaylandConnection& connection) : connection_(connection) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { pump(); });
    if (connection_.seat() == nullptr)
        return;
    manager_ = static_cast<zwp_virtual_keyboard_manager_v1*>(
        connection_.bind(&zwp_virtual_keyboard_manager_v1_interface, 1));
    if (manager_ == nullptr)
        return;
    const bool seatHadKeyboard = connection_.seatHasKeyboard();
    keyboard_ =
        zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(manager_, connection_.seat());
    uploadKeymap();
    if (seatHadKeyboard)
        return;
    waitingForSeat_ = true;
    readyAt_ = Clock::now() + std::chrono::milliseconds(kSeatAnswerMs);
    connection_.onCapabilitiesChanged([this] {
        if (!waitingForSeat_ || !connection_.seatHasKeyboard())
            return;
        waitingForSeat_ = false;
        readyAt_ = Clock::now() + std::chrono::milliseconds(kNewSeatKeyboardSettleMs);
        timer_.stop();
        pump();
    });
    connection_.roundtrip();
}

WaylandKeyboard::~WaylandKeyboard() {
    connection_.onCapabilitiesChanged({});
    finishTyping();
    if (keyboard_ != nullptr && connection_.isOpen()) {
        setModifiers(0);
        zwp_virtual_keyboard_v1_destroy(keyboard_);
    }
    if (manager_ != nullptr)
        zwp_virtual_keyboard_manager_v1_destroy(manager_);
    connection_.flush();
}

// Sends what is still queued before the keyboard goes: a program may end as soon
// as its text is handed over.
void WaylandKeyboard::finishTyping() {
    while (!queue_.empty() && connection_.isOpen() && keyboard_ != nullptr) {
        std::this_thread::sleep_until(readyAt_);
        timer_.stop();
        if (!batchInFlight_)
            sendBatch();
        connection_.roundtrip();
    }
    connection_.roundtrip();
}

void WaylandKeyboard::setKeyDelayMs(int milliseconds) {
    keyDelayMs_ = std::max(0, milliseconds);
}

std::optional<TypingError> WaylandKeyboard::type(const KeyStrokes& strokes) {
    using Reason = TypingError::Reason;
    switch (connection_.state()) {
    case WaylandConnection::State::NotOpened:
        return TypingError{Reason::CompositorNotReached, {}, connection_.displayName()};
    case WaylandConnection::State::Lost:
        return TypingError{Reason::DisplayLost, {}, {}};
    case WaylandConnection::State::Open:
        break;
    }
    if (keyboard_ == nullptr)
        return TypingError{Reason::NoVirtualKeyboard, {}, {}};
    for (const KeyStroke& stroke : strokes)
        if (!KeymapLayout::typeable(stroke))
            return TypingError{Reason::KeyNotTypeable, stroke, {}};
    for (const KeyStroke& stroke : strokes)
        queue_.push_back({stroke, {}});
    pump();
    return std::nullopt;
}

void WaylandKeyboard::flush(std::function<void()> done) {
    if (!done)
        done = [] {};
    queue_.push_back({KeyStroke{}, std::move(done)});
    pump();
}

void WaylandKeyboard::pump() {
    if (!connection_.isOpen() || keyboard_ == nullptr) {
        abandonQueue();
        return;
    }
    if (batchInFlight_ || timer_.isActive())
        return;
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(readyAt_ - Clock::now());
    if (wait.count() > 0) {
        timer_.start(static_cast<int>(wait.count()));
        return;
    }
    sendBatch();
}

// Sends a batch of strokes (one when they are paced), then lets the compositor
// catch up before the next.
void WaylandKeyboard::sendBatch() {
    const Clock::time_point started = Clock::now();
    // A slow round trip lets more strokes go at once, at the same rate.
    const auto due = (started - lastBatchAt_) * kMaxStrokesPerSecond / std::chrono::seconds(1);
    const int limit =
        static_cast<int>(std::clamp<std::int64_t>(due, kBatchStrokes, kMaxBatchStrokes));
    lastBatchAt_ = started;
    int sent = 0;
    while (!queue_.empty() && sent < limit) {
        Pending& next = queue_.front();
        if (next.done) {
            setModifiers(0);
            connection_.sync(
                [done = std::move(next.done)] { QTimer::singleShot(kFlushSettleMs, done); });
            queue_.pop_front();
            continue;
        }
        std::optional<KeyPress> press = layout_.pressFor(next.stroke);
        if (!press) {
            KeyStrokes ahead;
            for (const Pending& pending : queue_)
                if (!pending.done)
                    ahead.append(pending.stroke);
            layout_.place(ahead);
            if (!uploadKeymap()) {
                abandonQueue();
                return;
            }
            press = layout_.pressFor(next.stroke);
        }
        send(*press);
        layout_.touch(next.stroke);
        queue_.pop_front();
        ++sent;
        if (keyDelayMs_ > 0) {
            readyAt_ = Clock::now() + std::chrono::milliseconds(keyDelayMs_);
            break;
        }
    }
    if (keyDelayMs_ == 0)
        readyAt_ = started + sent * std::chrono::microseconds(1'000'000 / kMaxStrokesPerSecond);
    if (queue_.empty()) {
        setModifiers(0);
        connection_.flush();
        return;
    }
    batchInFlight_ = true;
    connection_.sync([this] {
        batchInFlight_ = false;
        pump();
    });
}

bool WaylandKeyboard::uploadKeymap() {
    const QByteArray text = layout_.text();
    const int fd = keymapFile(text);
    if (fd < 0)
        return false;
    zwp_virtual_keyboard_v1_keymap(keyboard_, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, fd,
                                   static_cast<std::uint32_t>(text.size() + 1));
    close(fd);
    modifiers_ = ~0u; // a new keymap starts with its modifiers unknown to clients
    ++keymapUploads_;
    return true;
}

void WaylandKeyboard::send(const KeyPress& press) {
    setModifiers(press.modifiers);
    const std::uint32_t time = now();
    zwp_virtual_keyboard_v1_key(keyboard_, time, press.evdevCode, WL_KEYBOARD_KEY_STATE_PRESSED);
    zwp_virtual_keyboard_v1_key(keyboard_, time, press.evdevCode, WL_KEYBOARD_KEY_STATE_RELEASED);
}

void WaylandKeyboard::setModifiers(std::uint32_t modifiers) {
    if (modifiers == modifiers_ || keyboard_ == nullptr)
        return;
    zwp_virtual_keyboard_v1_modifiers(keyboard_, modifiers, 0, 0, 0);
    modifiers_ = modifiers;
}

std::uint32_t WaylandKeyboard::now() const {
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - startedAt_);
    return static_cast<std::uint32_t>(elapsed.count());
}

// The compositor is gone: the keys are lost, but whoever waits for them must go on.
void WaylandKeyboard::abandonQueue() {
    for (Pending& pending : queue_)
        if (pending.done)
            QTimer::singleShot(0, pending.done);
    queue_.clear();
}

} // namespace mervak
