#include "platform/x11/X11KeyMap.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>
#include <bit>
#include <tuple>

namespace mervak {

namespace {

bool isLockSymbol(KeySym symbol) {
    switch (symbol) {
    case XK_Caps_Lock:
    case XK_Shift_Lock:
    case XK_Num_Lock:
    case XK_Scroll_Lock:
    case XK_ISO_Lock:
    case XK_ISO_Level3_Lock:
    case XK_ISO_Level5_Lock:
    case XK_ISO_Group_Lock:
        return true;
    default:
        return false;
    }
}

// The held keys we prefer for each modifier: the left-hand ones of a PC keyboard.
int preference(KeySym symbol) {
    constexpr KeySym preferred[] = {XK_Shift_L, XK_Control_L, XK_Alt_L, XK_ISO_Level3_Shift,
                                    XK_Mode_switch};
    for (int i = 0; i < static_cast<int>(std::size(preferred)); ++i) {
        if (preferred[i] == symbol) {
            return i;
        }
    }
    return static_cast<int>(std::size(preferred));
}

// Better places type off the keypad, with fewer modifiers, on lower keycodes.
auto rank(bool keypad, KeyPlace place) {
    return std::tuple(keypad, std::popcount(place.modifiers), place.keycode);
}

struct XkbMap {
    XkbDescPtr desc = nullptr;
    explicit XkbMap(Display* display)
        : desc(XkbGetMap(display, XkbKeyTypesMask | XkbKeySymsMask | XkbModifierMapMask,
                         XkbUseCoreKbd)) {}
    ~XkbMap() {
        if (desc != nullptr) {
            XkbFreeKeyboard(desc, 0, True);
        }
    }
    XkbMap(const XkbMap&) = delete;
    XkbMap& operator=(const XkbMap&) = delete;
};

int groupOfKey(XkbDescPtr xkb, int keycode, int group) {
    const int groups = XkbKeyNumGroups(xkb, keycode);
    return groups == 0 ? -1 : group % groups;
}

// The fewest modifiers, all of them pressable, that select `level` of `type`.
std::optional<unsigned> modifiersForLevel(const XkbKeyTypeRec& type, int level,
                                          unsigned pressable) {
    if (level == 0) {
        return 0u;
    }
    std::optional<unsigned> best;
    for (int i = 0; i < type.map_count; ++i) {
        const XkbKTMapEntryRec& entry = type.map[i];
        const unsigned mask = entry.mods.mask;
        if (!entry.active || entry.level != level || (mask & ~pressable) != 0) {
            continue;
        }
        if (!best || std::popcount(mask) < std::popcount(*best)) {
            best = mask;
        }
    }
    return best;
}

// Whether `keycode` holds `symbols` on its levels in the first group (kNoSymbol
// entries are not checked).
bool holds(XkbDescPtr xkb, int keycode, const QList<KeySymbol>& symbols) {
    if (keycode < xkb->min_key_code || keycode > xkb->max_key_code ||
        XkbKeyNumGroups(xkb, keycode) == 0) {
        return false;
    }
    const int width = XkbKeyGroupWidth(xkb, keycode, 0);
    for (int level = 0; level < symbols.size(); ++level) {
        const KeySymbol expected = symbols[level];
        if (expected != kNoSymbol &&
            (level >= width || XkbKeySymEntry(xkb, keycode, level, 0) != expected)) {
            return false;
        }
    }
    return true;
}

// The group (layout) the keyboard is in now, or -1 when it cannot be read.
int currentGroup(Display* display) {
    XkbStateRec state;
    if (XkbGetState(display, XkbUseCoreKbd, &state) != Success) {
        return -1;
    }
    return state.group;
}

} // namespace

std::optional<X11KeyMap> X11KeyMap::read(Display* display,
                                         const QHash<KeyCode8, QList<KeySymbol>>& ownKeycodes) {
    const int group = currentGroup(display);
    XkbMap xkb(display);
    if (group < 0 || xkb.desc == nullptr) {
        return std::nullopt;
    }
    X11KeyMap map;
    const int first = xkb.desc->min_key_code;
    const int last = xkb.desc->max_key_code;

    for (auto own = ownKeycodes.begin(); own != ownKeycodes.end(); ++own) {
        if (holds(xkb.desc, own.key(), own.value())) {
            map.intactOwn_.insert(own.key());
        }
    }

    // First the modifier keys, so levels can be limited to modifiers we can hold.
    std::array<KeySym, 8> chosen{};
    for (int keycode = first; keycode <= last; ++keycode) {
        const unsigned bits = xkb.desc->map->modmap[keycode];
        const int keyGroup = groupOfKey(xkb.desc, keycode, group);
        if (bits == 0 || keyGroup < 0 || map.intactOwn_.contains(keycode)) {
            continue;
        }
        const KeySym symbol = XkbKeySymEntry(xkb.desc, keycode, 0, keyGroup);
        for (int bit = 0; bit < 8; ++bit) {
            const bool takes = (bits & (1u << bit)) != 0 && !isLockSymbol(symbol);
            if (takes &&
                (map.modifierKeys_[bit] == 0 || preference(symbol) < preference(chosen[bit]))) {
                map.modifierKeys_[bit] = keycode;
                chosen[bit] = symbol;
            }
        }
    }
    unsigned pressable = 0;
    for (int bit = 0; bit < 8; ++bit) {
        pressable |= map.modifierKeys_[bit] != 0 ? (1u << bit) : 0;
    }
    pressable &= ~static_cast<unsigned>(LockMask);

    for (int keycode = first; keycode <= last; ++keycode) {
        const int keyGroup = groupOfKey(xkb.desc, keycode, group);
        if (map.intactOwn_.contains(keycode) ||
            (keyGroup < 0 && xkb.desc->map->modmap[keycode] == 0)) {
            map.spare_.append(keycode);
            continue;
        }
        if (keyGroup < 0) {
            continue;
        }
        const XkbKeyTypeRec& type = *XkbKeyKeyType(xkb.desc, keycode, keyGroup);
        const int width = XkbKeyGroupWidth(xkb.desc, keycode, keyGroup);
        for (int level = 0; level < width; ++level) {
            const KeySym symbol = XkbKeySymEntry(xkb.desc, keycode, level, keyGroup);
            const std::optional<unsigned> modifiers = modifiersForLevel(type, level, pressable);
            if (symbol != NoSymbol && modifiers) {
                map.index(symbol, {static_cast<KeyCode8>(keycode), *modifiers});
            }
        }
    }
    return map;
}

void X11KeyMap::index(KeySymbol symbol, KeyPlace place) {
    auto found = symbols_.find(symbol);
    if (found == symbols_.end() || rank(false, place) < rank(false, *found)) {
        symbols_.insert(symbol, place);
    }
    // A character reached from several keysyms (KP_1 and 1) prefers the main keyboard.
    const char32_t character = characterOfKeySymbol(symbol);
    const bool keypad = isKeypadSymbol(symbol);
    auto known = characters_.find(character);
    if (character != 0 &&
        (known == characters_.end() || rank(keypad, place) < rank(known->keypad, known->place))) {
        characters_.insert(character, {place, keypad});
    }
}

std::optional<KeyPlace> X11KeyMap::findSymbol(KeySymbol symbol) const {
    auto found = symbols_.find(symbol);
    return found == symbols_.end() ? std::nullopt : std::optional(*found);
}

std::optional<KeyPlace> X11KeyMap::findCharacter(char32_t character) const {
    auto found = characters_.find(character);
    return found == characters_.end() ? std::nullopt : std::optional(found->place);
}

} // namespace mervak
