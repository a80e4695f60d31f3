#pragma once

#include "platform/KeyStroke.h"

#include <cstdint>

namespace mervak {

// X keysyms, kept as plain numbers so callers need no X headers.
using KeySymbol = std::uint32_t;
constexpr KeySymbol kNoSymbol = 0;

// An X keycode (8..255).
using KeyCode8 = std::uint8_t;

// The keysym a named key is typed with (Key::Enter is Return, Key::Add is KP_Add);
// kNoSymbol for Key::Character.
KeySymbol keySymbolForKey(Key key);

// The keysym that types `character` on a keycode of its own: its legacy keysym when
// it has one (EuroSign for "€"), else its Unicode keysym. Line feed and carriage
// return are Return, tab is Tab, backspace BackSpace, escape Escape, delete Delete.
// kNoSymbol for other control characters, surrogates and values beyond Unicode.
KeySymbol keySymbolForCharacter(char32_t character);

// The character a keysym types, or 0 when it types none (dead keys, function keys).
char32_t characterOfKeySymbol(KeySymbol symbol);

// True for the keysyms of the numeric keypad.
bool isKeypadSymbol(KeySymbol symbol);

} // namespace mervak
