#pragma once

#include "platform/KeyStroke.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <cstdint>
#include <optional>

namespace mervak {

// What the virtual keyboard sends for one stroke: the key's evdev code and the
// modifiers held around it, as a mask of the keymap's modifiers.
struct KeyPress {
    std::uint32_t evdevCode = 0;
    std::uint32_t modifiers = 0;
    friend bool operator==(const KeyPress&, const KeyPress&) = default;
};

// The keymap Mervak uploads to its virtual keyboard, so that every character
// types whatever the user's layout. Named keys and the modifiers sit on their
// usual evdev codes; each character gets a key of its own, lower case on the first
// level and upper case on the second, as on a real keyboard (so "+a" types "A").
// Characters keep their keys for later runs; when the keys run out, those used
// least recently make way. Clients read keys in order with the keymap of the
// moment, so a key may change meaning between two runs without loss.
class KeymapLayout {
public:
    static constexpr std::uint32_t kShiftMask = 1u << 0; // the real modifiers' bits
    static constexpr std::uint32_t kControlMask = 1u << 2;
    static constexpr std::uint32_t kAltMask = 1u << 3; // Mod1

    KeymapLayout();

    // False for strokes no keymap can type (control characters, surrogates).
    static bool typeable(const KeyStroke& stroke);

    // What types the stroke with the present keymap; nothing when its character has
    // no key yet.
    std::optional<KeyPress> pressFor(const KeyStroke& stroke) const;

    // Gives keys to the characters of `strokes` that have none, in order, making way
    // for them from the least recently used: as many as fit, so the caller types
    // the strokes up to the first still without a key, then places the rest.
    // True when the keymap changed.
    bool place(const KeyStrokes& strokes);

    // Marks the character's key as just used.
    void touch(const KeyStroke& stroke);

    // The keymap in the XKB text format.
    QByteArray text() const;

    // How many characters fit at once.
    static int characterKeyCount();

private:
    struct CharacterKey {
        std::uint32_t evdevCode = 0;
        std::uint64_t lastUse = 0;
    };
    // The key that holds `character` on one of its levels: its lower case.
    static char32_t keyCharacter(char32_t character);

    QHash<char32_t, CharacterKey> keys_; // by keyCharacter()
    QList<std::uint32_t> freeCodes_;
    std::uint64_t clock_ = 0;
};

} // namespace mervak
