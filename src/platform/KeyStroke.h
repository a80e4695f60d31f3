#pragma once

#include <QList>
#include <QString>

namespace mervak {

// The named keys of the send-keys notation.
enum class Key {
    Character, // not a named key: KeyStroke::character is typed
    Enter,
    Tab,
    Backspace,
    Escape,
    Delete,
    Insert,
    Home,
    End,
    PageUp,
    PageDown,
    Left,
    Right,
    Up,
    Down,
    F1,
    F2,
    F3,
    F4,
    F5,
    F6,
    F7,
    F8,
    F9,
    F10,
    F11,
    F12,
    F13,
    F14,
    F15,
    F16,
    CapsLock,
    NumLock,
    ScrollLock,
    PrintScreen,
    Break,
    Help,
    Add,
    Subtract,
    Multiply,
    Divide,
};

struct Modifiers {
    bool shift = false;
    bool control = false;
    bool alt = false;
    friend bool operator==(const Modifiers&, const Modifiers&) = default;
};

// One key typed once: pressed with its modifiers held, then released.
struct KeyStroke {
    Key key = Key::Character;
    char32_t character = 0; // any Unicode character when key is Key::Character
    Modifiers modifiers;
    friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};

using KeyStrokes = QList<KeyStroke>;

} // namespace mervak
