#include "platform/wayland/KeymapLayout.h"

#include <QChar>
#include <algorithm>
#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

namespace mervak {

namespace {

// XKB numbers keys 8 above their evdev codes, up to 255 (X clients see no more).
constexpr std::uint32_t kXkbOffset = 8;
constexpr std::uint32_t kLastEvdevCode = 255 - kXkbOffset;

struct NamedKey {
    Key key;
    std::uint32_t evdevCode;
    xkb_keysym_t symbol;
};

constexpr NamedKey kNamedKeys[] = {
    {Key::Enter, KEY_ENTER, XKB_KEY_Return},
    {Key::Tab, KEY_TAB, XKB_KEY_Tab},
    {Key::Backspace, KEY_BACKSPACE, XKB_KEY_BackSpace},
    {Key::Escape, KEY_ESC, XKB_KEY_Escape},
    {Key::Delete, KEY_DELETE, XKB_KEY_Delete},
    {Key::Insert, KEY_INSERT, XKB_KEY_Insert},
    {Key::Home, KEY_HOME, XKB_KEY_Home},
    {Key::End, KEY_END, XKB_KEY_End},
    {Key::PageUp, KEY_PAGEUP, XKB_KEY_Prior},
    {Key::PageDown, KEY_PAGEDOWN, XKB_KEY_Next},
    {Key::Left, KEY_LEFT, XKB_KEY_Left},
    {Key::Right, KEY_RIGHT, XKB_KEY_Right},
    {Key::Up, KEY_UP, XKB_KEY_Up},
    {Key::Down, KEY_DOWN, XKB_KEY_Down},
    {Key::F1, KEY_F1, XKB_KEY_F1},
    {Key::F2, KEY_F2, XKB_KEY_F2},
    {Key::F3, KEY_F3, XKB_KEY_F3},
    {Key::F4, KEY_F4, XKB_KEY_F4},
    {Key::F5, KEY_F5, XKB_KEY_F5},
    {Key::F6, KEY_F6, XKB_KEY_F6},
    {Key::F7, KEY_F7, XKB_KEY_F7},
    {Key::F8, KEY_F8, XKB_KEY_F8},
    {Key::F9, KEY_F9, XKB_KEY_F9},
    {Key::F10, KEY_F10, XKB_KEY_F10},
    {Key::F11, KEY_F11, XKB_KEY_F11},
    {Key::F12, KEY_F12, XKB_KEY_F12},
    {Key::F13, KEY_F13, XKB_KEY_F13},
    {Key::F14, KEY_F14, XKB_KEY_F14},
    {Key::F15, KEY_F15, XKB_KEY_F15},
    {Key::F16, KEY_F16, XKB_KEY_F16},
    {Key::CapsLock, KEY_CAPSLOCK, XKB_KEY_Caps_Lock},
    {Key::NumLock, KEY_NUMLOCK, XKB_KEY_Num_Lock},
    {Key::ScrollLock, KEY_SCROLLLOCK, XKB_KEY_Scroll_Lock},
    {Key::PrintScreen, KEY_SYSRQ, XKB_KEY_Print},
    {Key::Break, KEY_PAUSE, XKB_KEY_Break},
    {Key::Help, KEY_HELP, XKB_KEY_Help},
    {Key::Add, KEY_KPPLUS, XKB_KEY_KP_Add},
    {Key::Subtract, KEY_KPMINUS, XKB_KEY_KP_Subtract},
    {Key::Multiply, KEY_KPASTERISK, XKB_KEY_KP_Multiply},
    {Key::Divide, KEY_KPSLASH, XKB_KEY_KP_Divide},
};

struct ModifierKey {
    std::uint32_t evdevCode;
    const char* symbol;
    const char* modifier;
};

constexpr ModifierKey kModifierKeys[] = {{KEY_LEFTSHIFT, "Shift_L", "Shift"},
                                         {KEY_LEFTCTRL, "Control_L", "Control"},
                                         {KEY_LEFTALT, "Alt_L", "Mod1"}};

// Control characters the notation types as named keys.
std::optional<Key> namedKeyOf(char32_t character) {
    switch (character) {
    case U'\n':
    case U'\r':
        return Key::Enter;
    case U'\t':
        return Key::Tab;
    case U'\b':
        return Key::Backspace;
    case 0x1b:
        return Key::Escape;
    case 0x7f:
        return Key::Delete;
    default:
        return std::nullopt;
    }
}

const NamedKey* namedKey(Key key) {
    const auto* found = std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                                     [key](const NamedKey& named) { return named.key == key; });
    return found == std::end(kNamedKeys) ? nullptr : found;
}

bool isReserved(std::uint32_t code) {
    return std::any_of(std::begin(kNamedKeys), std::end(kNamedKeys),
                       [code](const NamedKey& named) { return named.evdevCode == code; }) ||
           std::any_of(std::begin(kModifierKeys), std::end(kModifierKeys),
                       [code](const ModifierKey& key) { return key.evdevCode == code; });
}

char32_t upperOf(char32_t character) {
    return QChar::toUpper(character);
}

QByteArray symbolName(xkb_keysym_t symbol) {
    char name[64];
    xkb_keysym_get_name(symbol, name, sizeof name);
    return name;
}

QByteArray keyName(std::uint32_t evdevCode) {
    return "<I" + QByteArray::number(evdevCode + kXkbOffset) + '>';
}

} // namespace

KeymapLayout::KeymapLayout() {
    for (std::uint32_t code = 1; code <= kLastEvdevCode; ++code)
        if (!isReserved(code))
            freeCodes_.append(code);
}

int KeymapLayout::characterKeyCount() {
    return static_cast<int>(KeymapLayout().freeCodes_.size());
}

bool KeymapLayout::typeable(const KeyStroke& stroke) {
    if (stroke.key != Key::Character)
        return namedKey(stroke.key) != nullptr;
    const char32_t c = stroke.character;
    if (namedKeyOf(c))
        return true;
    const bool control = c < 0x20 || (c >= 0x7f && c < 0xa0);
    const bool surrogate = c >= 0xd800 && c <= 0xdfff;
    return !control && !surrogate && c <= 0x10ffff;
}

char32_t KeymapLayout::keyCharacter(char32_t character) {
    const char32_t lower = QChar::toLower(character);
    return lower != character && upperOf(lower) == character ? lower : character;
}

std::optional<KeyPress> KeymapLayout::pressFor(const KeyStroke& stroke) const {
    const Modifiers& held = stroke.modifiers;
    std::uint32_t mask = (held.shift ? kShiftMask : 0) | (held.control ? kControlMask : 0) |
                         (held.alt ? kAltMask : 0);
    Key key = stroke.key;
    if (key == Key::Character) {
        if (const std::optional<Key> named = namedKeyOf(stroke.character)) {
            key = *named;
        } else {
            const auto found = keys_.find(keyCharacter(stroke.character));
            if (found == keys_.end())
                return std::nullopt;
            const bool upper = stroke.character != keyCharacter(stroke.character);
            return KeyPress{found->evdevCode, mask | (upper ? kShiftMask : 0)};
        }
    }
    const NamedKey* named = namedKey(key);
    if (named == nullptr)
        return std::nullopt;
    return KeyPress{named->evdevCode, mask};
}

bool KeymapLayout::place(const KeyStrokes& strokes) {
    QList<char32_t> wanted;
    for (const KeyStroke& stroke : strokes) {
        if (stroke.key != Key::Character || namedKeyOf(stroke.character) || !typeable(stroke))
            continue;
        const char32_t character = keyCharacter(stroke.character);
        if (!wanted.contains(character))
            wanted.append(character);
        if (wanted.size() == characterKeyCount())
            break;
    }
    bool changed = false;
    for (const char32_t character : wanted) {
        if (keys_.contains(character))
            continue;
        if (freeCodes_.isEmpty()) {
            // The least recently used key that this run does not need.
            auto oldest = keys_.end();
            for (auto key = keys_.begin(); key != keys_.end(); ++key)
                if (!wanted.contains(key.key()) &&
                    (oldest == keys_.end() || key->lastUse < oldest->lastUse))
                    oldest = key;
            freeCodes_.append(oldest->evdevCode);
            keys_.erase(oldest);
        }
        keys_.insert(character, {freeCodes_.takeFirst(), ++clock_});
        changed = true;
    }
    return changed;
}

void KeymapLayout::touch(const KeyStroke& stroke) {
    if (stroke.key != Key::Character)
        return;
    const auto found = keys_.find(keyCharacter(stroke.character));
    if (found != keys_.end())
        found->lastUse = ++clock_;
}

QByteArray KeymapLayout::text() const {
    QByteArray codes;
    QByteArray symbols;
    const auto addKey = [&](std::uint32_t evdevCode, const QByteArray& definition) {
        codes +=
            "  " + keyName(evdevCode) + " = " + QByteArray::number(evdevCode + kXkbOffset) + ";\n";
        symbols += "  key " + keyName(evdevCode) + " { " + definition + " };\n";
    };
    for (const ModifierKey& modifier : kModifierKeys) {
        addKey(modifier.evdevCode, QByteArray("[ ") + modifier.symbol + " ]");
        symbols += QByteArray("  modifier_map ") + modifier.modifier + " { " +
                   keyName(modifier.evdevCode) + " };\n";
    }
    for (const NamedKey& named : kNamedKeys)
        addKey(named.evdevCode, "[ " + symbolName(named.symbol) + " ]");
    for (auto key = keys_.begin(); key != keys_.end(); ++key) {
        const char32_t lower = key.key();
        const char32_t upper = upperOf(lower);
        const QByteArray first = symbolName(xkb_utf32_to_keysym(lower));
        addKey(key->evdevCode, upper != lower && keyCharacter(upper) == lower
                                   ? "type = \"TWO_LEVEL\", [ " + first + ", " +
                                         symbolName(xkb_utf32_to_keysym(upper)) + " ]"
                                   : "type = \"ONE_LEVEL\", [ " + first + " ]");
    }
    return "xkb_keymap {\n"
           "xkb_keycodes \"mervak\" {\n  minimum = 8;\n  maximum = 255;\n" +
           codes +
           "};\n"
           "xkb_types \"mervak\" {\n"
           "  virtual_modifiers Alt;\n"
           "  type \"ONE_LEVEL\" { modifiers = none; level_name[Level1] = \"Any\"; };\n"
           "  type \"TWO_LEVEL\" { modifiers = Shift; map[Shift] = Level2; level_name[Level1] = "
           "\"Base\";"
           " level_name[Level2] = \"Shift\"; };\n"
           "};\n"
           "xkb_compatibility \"mervak\" {\n"
           "  virtual_modifiers Alt;\n"
           "  interpret Alt_L { virtualModifier = Alt; action = SetMods(modifiers = modMapMods); "
           "};\n"
           "  interpret Caps_Lock { action = LockMods(modifiers = Lock); };\n"
           "  interpret Any + AnyOf(all) { action = SetMods(modifiers = modMapMods); };\n"
           // XWayland 22 crashes when an X program reads a keymap without indicators.
           "  indicator \"Caps Lock\" { whichModState = locked; modifiers = Lock; };\n"
           "};\n"
           "xkb_symbols \"mervak\" {\n" +
           symbols + "  modifier_map Lock { " + keyName(KEY_CAPSLOCK) +
           " };\n"
           "};\n"
           "};\n";
}

} // namespace mervak
