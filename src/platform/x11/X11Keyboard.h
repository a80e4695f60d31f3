#pragma once

#include "platform/KeyboardOutput.h"
#include "platform/x11/SpareKeycodes.h"
#include "platform/x11/X11KeyMap.h"

#include <QTimer>
#include <chrono>
#include <deque>
#include <optional>

namespace mervak {

class X11Connection;

// Types keys with XTest into whichever window has the input focus.
//
// A character on the keyboard map is typed on its own key with the modifiers of its
// level (Shift, AltGr). A character missing from the map gets a place on a spare
// keycode (two per keycode: plain and Shift): all the missing characters of a run
// are mapped with one keymap change, stay mapped for later runs, and the least
// recently used make way when the places run out. Keys on changed keycodes are sent
// kRemapSettleMs after the change. A place is taken from an older character only
// kEvictSettleMs after the last key was sent: clients decode a key with the map of
// the moment they read it, so they must have read the older keys first. Nothing in
// X tells when they have; a client that lags further behind can misread them.
//
// Strokes that need no wait are sent before type() returns; the rest follow from the
// event loop, in order. Call flush() before any output that must come after them.
class X11Keyboard : public KeyboardOutput {
public:
    static constexpr int kRemapSettleMs = 20;
    static constexpr int kEvictSettleMs = 100;
    // How long flush() waits after XSync, when the server has handled every key and
    // queued its events to the client. Clients read a key 0.03 ms (p50) after it is
    // sent; xterm has passed a burst of up to 100 keys on to its program within
    // 0.02 to 7 ms (p50) depending on the machine's load (tools/xbench). Order does
    // not depend on it: later keys, clicks and focus changes queue behind the keys.
    static constexpr int kFlushSettleMs = 5;

    // The connection must outlive the keyboard.
    explicit X11Keyboard(X11Connection& connection);
    // Clears the spare keycodes this keyboard mapped.
    ~X11Keyboard() override;
    X11Keyboard(const X11Keyboard&) = delete;
    X11Keyboard& operator=(const X11Keyboard&) = delete;

    // Pause between two strokes, in milliseconds; 0, the default, sends a run at once.
    // Some programs drop keys that come too fast.
    void setKeyDelayMs(int milliseconds);

    std::optional<TypingError> type(const KeyStrokes& strokes) override;
    void flush(std::function<void()> done) override;

    // Keymap changes made so far; each costs every client, the window manager most.
    int keymapChanges() const { return keymapChanges_; }

private:
    using Clock = std::chrono::steady_clock;

    struct Pending {
        KeyStroke stroke;
        std::function<void()> done; // set for a flush, which has no stroke
    };

    std::optional<TypingError> notReady() const;
    void refreshKeyMap();
    void watchKeyboard();
    void readKeyMap();
    KeySymbol symbolOf(const KeyStroke& stroke) const;
    std::optional<KeyPlace> placeOf(const KeyStroke& stroke) const;
    std::optional<TypingError> problemWith(const KeyStroke& stroke) const;
    void pump();
    bool mapSpareKeys();
    void writeSpareKeycodes(const QList<KeyCode8>& keycodes);
    bool isOwnChange(int first, int count) const;
    void send(const KeyStroke& stroke, KeyPlace place);
    void abandonQueue();
    void waitUntil(Clock::time_point moment);
    void clearSpareKeycodes();

    X11Connection& connection_;
    std::optional<X11KeyMap> keyMap_;
    SpareKeycodes spares_;
    bool keyMapStale_ = false;
    int xkbEventBase_ = -1;
    static constexpr int kOwnChangesKept = 8;
    QList<std::pair<int, int>> ownChanges_; // first keycode and count of our latest changes
    std::deque<Pending> queue_;
    QTimer timer_;
    Clock::time_point readyAt_{};
    Clock::time_point lastKeyAt_{};
    int keyDelayMs_ = 0;
    int keymapChanges_ = 0;
};

} // namespace mervak
