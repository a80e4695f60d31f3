#pragma once

#include "platform/KeyboardOutput.h"
#include "platform/x11/SpareKeycodes.h"
#include "platform/x11/X11KeyMap.h"

#include <QHash>
#include <QTimer>
#include <chrono>
#include <deque>
#include <optional>

namespace mervak {

class X11Connection;

// Types keys with XTest into whichever window has the input focus.
//
// A character on the keyboard map is typed on its own key with the modifiers of its
// level (Shift, AltGr). Characters missing from the map are typed in batches: as
// many of the missing characters ahead as the spare keycodes hold (two per keycode:
// plain and Shift) are mapped with one keymap change and typed; they stay mapped,
// and the least recently used make way for the next batch.
//
// Keys on changed keycodes go at once after the change: the server handles the
// change before the keys that follow it on our connection, and every client gets
// the change's notice before those keys and fetches the new map when it decodes
// the first of them. The window manager re-reads the map and its key bindings on
// each change (about 70 ms of CPU for openbox), but where keys go does not depend
// on it: they do not wait for it either. A place is rewritten (for the next batch, or to restore
// the layout) only kEvictSettleMs after the last key sent on it: a client that has read the notice
// of a later change before decoding an older key decodes it with the later map. Nothing in X tells
// when a client has decoded its keys; a client that lags further behind can misread them.
//
// Strokes that need no wait are sent before type() returns; the rest follow from the
// event loop, in order. Call flush() before any output that must come after them.
// Every stroke's modifiers are pressed and released in the same request batch, so
// no modifier stays down whatever happens to the target in the middle of a text.
class X11Keyboard : public KeyboardOutput {
public:
    // How long a client may take to decode a key after it was sent. xterm decodes a
    // burst of 1000 keys 24 ms (p50) and 84 ms (p99) after the server has them on a
    // machine whose two cores are wanted by about seven programs each (tools/xbench),
    // where a press also waits up to 117 ms (p99) for a CPU; 100 ms here let xterm
    // misread a batch now and then at that load.
    static constexpr int kEvictSettleMs = 200;
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

    // Sends what is queued, then gives the spare keycodes back once the target can
    // have decoded the keys sent on them, and calls `done`: the keyboard map is the
    // user's again, exactly. Typing again maps them anew.
    void restoreLayout(std::function<void()> done) override;

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
    Clock::time_point rewritableAt(const QList<SpareKeycodes::Change>& changes) const;
    void writeSpareKeycodes(const QList<KeyCode8>& keycodes);
    bool isOwnChange(int first, int count) const;
    void send(const KeyStroke& stroke, KeyPlace place);
    void abandonQueue();
    void waitUntil(Clock::time_point moment);
    void clearSpareKeycodes();
    void clearSpareKeycodesWhenSafe(const std::function<void()>& done);

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
    QHash<KeySymbol, Clock::time_point> spareKeySentAt_; // last key sent on each spare keysym
    int keyDelayMs_ = 0;
    int keymapChanges_ = 0;
};

} // namespace mervak
