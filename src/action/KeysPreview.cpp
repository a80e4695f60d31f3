#include "action/KeysPreview.h"

#include "action/ActionTextSplitter.h"

#include <array>

namespace mervak {

namespace {

constexpr qsizetype kLongestTag = 16;

struct KeyLook {
    Key key;
    const char16_t* look;
};

// Symbols where keyboards and menus use them, else the names keyboards print.
constexpr std::array kLooks = {
    KeyLook{Key::Enter, u"⏎"},
    KeyLook{Key::Tab, u"⇥"},
    KeyLook{Key::Backspace, u"⌫"},
    KeyLook{Key::Escape, u"Esc"},
    KeyLook{Key::Delete, u"⌦"},
    KeyLook{Key::Insert, u"Ins"},
    KeyLook{Key::Home, u"⇱"},
    KeyLook{Key::End, u"⇲"},
    KeyLook{Key::PageUp, u"⇞"},
    KeyLook{Key::PageDown, u"⇟"},
    KeyLook{Key::Left, u"←"},
    KeyLook{Key::Right, u"→"},
    KeyLook{Key::Up, u"↑"},
    KeyLook{Key::Down, u"↓"},
    KeyLook{Key::CapsLock, u"⇪"},
    KeyLook{Key::NumLock, u"NumLock"},
    KeyLook{Key::ScrollLock, u"ScrollLock"},
    KeyLook{Key::PrintScreen, u"PrtSc"},
    KeyLook{Key::Break, u"Break"},
    KeyLook{Key::Help, u"Help"},
    KeyLook{Key::Add, u"Num +"},
    KeyLook{Key::Subtract, u"Num -"},
    KeyLook{Key::Multiply, u"Num *"},
    KeyLook{Key::Divide, u"Num /"},
};

QString lookOf(Key key) {
    for (const KeyLook& look : kLooks)
        if (look.key == key)
            return QString::fromUtf16(look.look);
    // The function keys follow one another from F1.
    return QStringLiteral("F%1").arg(static_cast<int>(key) - static_cast<int>(Key::F1) + 1);
}

QString characterOf(const KeyStroke& stroke) {
    return QString::fromUcs4(&stroke.character, 1);
}

QString chordOf(const KeyStroke& stroke) {
    QString chord;
    if (stroke.modifiers.control)
        chord += QStringLiteral("Ctrl+");
    if (stroke.modifiers.alt)
        chord += QStringLiteral("Alt+");
    if (stroke.modifiers.shift)
        chord += QStringLiteral("Shift+");
    if (stroke.key != Key::Character)
        return chord + lookOf(stroke.key);
    return chord + (stroke.character == U' ' ? QStringLiteral("␣") : characterOf(stroke).toUpper());
}

bool isOneCharacter(const QString& text) {
    return text.toUcs4().size() == 1;
}

QString lookOf(const KeyStroke& stroke) {
    const Modifiers none;
    const Modifiers shift{true, false, false};
    if (stroke.key == Key::Character) {
        const QString character = characterOf(stroke);
        if (stroke.modifiers == none)
            return character;
        // Shift on a letter gives its capital; on anything else it depends on the keyboard.
        if (stroke.modifiers == shift && character.toUpper() != character.toLower())
            return character.toUpper();
    }
    const QString look = stroke.modifiers == none ? lookOf(stroke.key) : chordOf(stroke);
    return isOneCharacter(look) ? look : u'⟨' + look + u'⟩';
}

QString lookOf(const KeyStrokes& strokes) {
    QString text;
    for (qsizetype i = 0; i < strokes.size();) {
        qsizetype alike = 1;
        while (i + alike < strokes.size() && strokes[i + alike] == strokes[i])
            ++alike;
        const QString look = lookOf(strokes[i]);
        if (alike > KeysPreview::kShownRepeats)
            text += look + u'×' + QString::number(alike);
        else
            text += look.repeated(alike);
        i += alike;
    }
    return text;
}

// The keyword and the start of the argument, from a block's text without its "}".
QString tagOf(const QString& block) {
    QString inside = block.mid(2).simplified();
    if (inside.size() > kLongestTag)
        inside = inside.left(kLongestTag - 1) + u'…';
    return u'⟦' + inside + u'⟧';
}

} // namespace

KeysPreview KeysPreview::of(const QString& actionText) {
    KeysPreview preview;
    qsizetype offset = 0;
    for (const ActionStep& step : ActionTextSplitter::split(actionText)) {
        if (step.kind != ActionStep::Kind::Keys) {
            preview.text += tagOf(step.text);
            offset += step.text.size() + 1; // and its "}"
            continue;
        }
        const SendKeysResult parsed = SendKeysParser::parse(step.text);
        if (parsed.error) {
            const SendKeysError& error = *parsed.error;
            preview.text += lookOf(SendKeysParser::parse(step.text.left(error.position)).strokes);
            preview.error = error;
            preview.error->position += offset;
            return preview;
        }
        preview.text += lookOf(parsed.strokes);
        offset += step.text.size();
    }
    return preview;
}

} // namespace mervak
