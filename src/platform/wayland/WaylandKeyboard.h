#pragma once

#include "platform/KeyboardOutput.h"
#include "platform/wayland/KeymapLayout.h"

#include <QTimer>
#include <chrono>
#include <deque>

struct zwp_virtual_keyboard_manager_v1;
struct zwp_virtual_keyboard_v1;

namespace mervak {

class WaylandConnection;

// Types keys through the compositor's virtual keyboard (wlroots compositors: sway,
// labwc, Wayfire, Hyprland...) into whichever window has the keyboard focus, with
// a keymap of our own (KeymapLayout), so every character arrives whatever the
// user's layout. A keymap upload reaches the clients before the keys that follow
// it, so a run is typed without waiting.
//
// One virtual keyboard serves the object's whole life. On a seat that had no
// keyboard, its arrival makes every client fetch a keyboard object first, and
// keys sent meanwhile are lost: the first key then waits kNewSeatKeyboardSettleMs
// after the seat says it has a keyboard.
//
// Strokes go out in batches of kBatchStrokes or more, each after the compositor has
// handled the one before, and no faster than kMaxStrokesPerSecond: the compositor
// drops a client whose socket fills up, and nothing tells how fast the focused
// client reads its keys (foot, measured here, lost most of a 20 000-character run
// sent at 15 000 a second).
class WaylandKeyboard : public KeyboardOutput {
public:
    static constexpr int kNewSeatKeyboardSettleMs = 150;
    static constexpr int kBatchStrokes = 32;
    static constexpr int kMaxBatchStrokes = 128; // about 8 KiB of requests
    static constexpr int kMaxStrokesPerSecond = 4000;
    // How long flush() waits after the compositor has passed every key on, for the
    // focused client to read them.
    static constexpr int kFlushSettleMs = 5;

    // The connection must outlive the keyboard.
    explicit WaylandKeyboard(WaylandConnection& connection);
    ~WaylandKeyboard() override;
    WaylandKeyboard(const WaylandKeyboard&) = delete;
    WaylandKeyboard& operator=(const WaylandKeyboard&) = delete;

    // False when the compositor offers no virtual keyboard.
    bool available() const { return keyboard_ != nullptr; }

    // Pause between two strokes, in milliseconds; 0 sends a run at once.
    void setKeyDelayMs(int milliseconds);

    std::optional<TypingError> type(const KeyStrokes& strokes) override;
    void flush(std::function<void()> done) override;

    // Keymaps uploaded so far.
    int keymapUploads() const { return keymapUploads_; }

private:
    using Clock = std::chrono::steady_clock;
    struct Pending {
        KeyStroke stroke;
        std::function<void()> done; // set for a flush, which has no stroke
    };

    void pump();
    void finishTyping();
    void sendBatch();
    bool uploadKeymap();
    void send(const KeyPress& press);
    void setModifiers(std::uint32_t modifiers);
    std::uint32_t now() const;
    void abandonQueue();

    WaylandConnection& connection_;
    zwp_virtual_keyboard_manager_v1* manager_ = nullptr;
    zwp_virtual_keyboard_v1* keyboard_ = nullptr;
    KeymapLayout layout_;
    std::uint32_t modifiers_ = 0;
    std::deque<Pending> queue_;
    QTimer timer_;
    Clock::time_point readyAt_{};
    Clock::time_point lastBatchAt_{};
    Clock::time_point startedAt_ = Clock::now();
    bool waitingForSeat_ = false;
    bool batchInFlight_ = false;
    int keyDelayMs_ = 0;
    int keymapUploads_ = 0;
};

} // namespace mervak
