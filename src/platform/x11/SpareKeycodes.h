#pragma once

#include "platform/x11/KeySymbols.h"

#include <QList>
#include <QSet>
#include <cstdint>
#include <optional>

namespace mervak {

// Which keysyms the spare keycodes hold. Each spare keycode holds two, one on its
// plain level and one on its Shift level. A keysym stays where it is until its
// place is needed for another one; then the least recently used goes.
class SpareKeycodes {
public:
    static constexpr int kLevels = 2;

    struct Place {
        KeyCode8 keycode = 0;
        int level = 0; // 0 plain, 1 with Shift
        friend bool operator==(const Place&, const Place&) = default;
    };

    struct Change {
        Place place;
        KeySymbol symbol = kNoSymbol;
        friend bool operator==(const Change&, const Change&) = default;
    };

    // Uses `keycodes` from now on; what keycodes still in the list hold is kept.
    void setKeycodes(const QList<KeyCode8>& keycodes);

    // The spare keycodes, ascending.
    QList<KeyCode8> keycodes() const;

    // Places for keysyms in all: kLevels per keycode.
    int capacity() const { return static_cast<int>(slots_.size()); }
    int freeCount() const;
    // Free places on plain levels, the only ones for keysyms that type no character.
    int freePlainCount() const;

    // Where `symbol` is held, if it is.
    std::optional<Place> find(KeySymbol symbol) const;

    // The keysym held at `place`, or kNoSymbol (also off the spare keycodes).
    KeySymbol symbolAt(Place place) const;

    // Marks `symbol` as used now.
    void touch(KeySymbol symbol);

    // Gives each of `symbols` (distinct, none held yet) a place: free places first,
    // in ascending order, then those of the least recently used keysyms that are not
    // in `keep`. Keysyms that type no character (F13, Help) only go on plain levels,
    // as Shift would change what they mean to programs. The symbols count as used
    // now. Nothing, and no change, when there are too few places.
    std::optional<QList<Change>> assign(const QList<KeySymbol>& symbols,
                                        const QSet<KeySymbol>& keep);

    // The keycodes that hold at least one keysym, ascending.
    QList<KeyCode8> usedKeycodes() const;

    // Forgets what `keycode` holds (someone else changed it on the server).
    void release(KeyCode8 keycode);

    // Forgets every keysym held (the keycodes were cleared on the server).
    void clear();

private:
    struct Slot {
        Place place;
        KeySymbol symbol = kNoSymbol;
        std::uint64_t lastUse = 0;
    };
    QList<Slot> slots_; // ascending keycode, then level
    std::uint64_t clock_ = 0;
};

} // namespace mervak
