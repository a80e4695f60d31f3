#include "platform/x11/KeySymbols.h"

#include <X11/keysym.h>
#include <xkbcommon/xkbcommon.h>

namespace mervak {

namespace {

struct NamedSymbol {
    Key key;
    KeySymbol symbol;
};

constexpr NamedSymbol kNamedSymbols[] = {
    {Key::Enter, XK_Return},
    {Key::Tab, XK_Tab},
    {Key::Backspace, XK_BackSpace},
    {Key::Escape, XK_Escape},
    {Key::Delete, XK_Delete},
    {Key::Insert, XK_Insert},
    {Key::Home, XK_Home},
    {Key::End, XK_End},
    {Key::PageUp, XK_Prior},
    {Key::PageDown, XK_Next},
    {Key::Left, XK_Left},
    {Key::Right, XK_Right},
    {Key::Up, XK_Up},
    {Key::Down, XK_Down},
    {Key::CapsLock, XK_Caps_Lock},
    {Key::NumLock, XK_Num_Lock},
    {Key::ScrollLock, XK_Scroll_Lock},
    {Key::PrintScreen, XK_Print},
    {Key::Break, XK_Break},
    {Key::Help, XK_Help},
    {Key::Add, XK_KP_Add},
    {Key::Subtract, XK_KP_Subtract},
    {Key::Multiply, XK_KP_Multiply},
    {Key::Divide, XK_KP_Divide},
};

} // namespace

KeySymbol keySymbolForKey(Key key) {
    if (key >= Key::F1 && key <= Key::F16) {
        return XK_F1 + (static_cast<int>(key) - static_cast<int>(Key::F1));
    }
    for (const NamedSymbol& named : kNamedSymbols) {
        if (named.key == key) {
            return named.symbol;
        }
    }
    return kNoSymbol;
}

KeySymbol keySymbolForCharacter(char32_t character) {
    switch (character) {
    case U'\n':
    case U'\r':
        return XK_Return;
    case U'\t':
        return XK_Tab;
    case U'\b':
        return XK_BackSpace;
    case 0x1b:
        return XK_Escape;
    case 0x7f:
        return XK_Delete;
    default:
        break;
    }
    const bool control = character < 0x20 || (character >= 0x80 && character < 0xa0);
    const bool surrogate = character >= 0xd800 && character <= 0xdfff;
    if (control || surrogate || character > 0x10ffff) {
        return kNoSymbol;
    }
    return xkb_utf32_to_keysym(character);
}

char32_t characterOfKeySymbol(KeySymbol symbol) {
    return xkb_keysym_to_utf32(symbol);
}

bool isKeypadSymbol(KeySymbol symbol) {
    return symbol >= XK_KP_Space && symbol <= XK_KP_Equal;
}

} // namespace mervak
