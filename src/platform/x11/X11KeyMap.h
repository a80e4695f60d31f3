#pragma once

#include "platform/x11/KeySymbols.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <array>
#include <cstdint>
#include <optional>

typedef struct _XDisplay Display;

namespace mervak {

// Where a keysym sits on the keyboard: its keycode and the X modifier mask (Shift,
// Mod5 for AltGr, ...) that selects its level.
struct KeyPlace {
    KeyCode8 keycode = 0;
    unsigned modifiers = 0;
    friend bool operator==(const KeyPlace&, const KeyPlace&) = default;
};

// A snapshot of the server's keyboard map in one group (layout), read through XKB.
class X11KeyMap {
public:
    // Reads the map for the keyboard's current group. `ownKeycodes` are the spare
    // keycodes this program has mapped itself, with the keysyms each should hold on
    // its levels: those still holding them stay spare and are not indexed. Nothing
    // when the server has no XKB extension.
    static std::optional<X11KeyMap> read(Display* display,
                                         const QHash<KeyCode8, QList<KeySymbol>>& ownKeycodes);

    std::optional<KeyPlace> findSymbol(KeySymbol symbol) const;
    std::optional<KeyPlace> findCharacter(char32_t character) const;

    // Keycodes with no symbol and no modifier, in ascending order, free for
    // characters missing from the map.
    const QList<KeyCode8>& spareKeycodes() const { return spare_; }

    // The keycodes of `ownKeycodes` (given to read()) that still hold their keysym.
    const QSet<KeyCode8>& intactOwnKeycodes() const { return intactOwn_; }

    // A key that sets modifier bit `index` (0 Shift .. 7 Mod5) while held, never a
    // lock key; 0 when there is none.
    KeyCode8 keycodeForModifier(int index) const { return modifierKeys_[index]; }

private:
    void index(KeySymbol symbol, KeyPlace place);

    QHash<KeySymbol, KeyPlace> symbols_;
    struct CharacterPlace {
        KeyPlace place;
        bool keypad = false;
    };
    QHash<char32_t, CharacterPlace> characters_;
    std::array<KeyCode8, 8> modifierKeys_{};
    QList<KeyCode8> spare_;
    QSet<KeyCode8> intactOwn_;
};

} // namespace mervak
