#include "action/SendKeysParser.h"

#include <array>

namespace mervak {

namespace {

constexpr int kMaxRepeat = 32767;

struct NamedKey {
    const char* name;
    Key key;
};

constexpr std::array kNamedKeys = {
    NamedKey{"ENTER", Key::Enter},
    NamedKey{"TAB", Key::Tab},
    NamedKey{"BS", Key::Backspace},
    NamedKey{"BKSP", Key::Backspace},
    NamedKey{"BACKSPACE", Key::Backspace},
    NamedKey{"ESC", Key::Escape},
    NamedKey{"ESCAPE", Key::Escape},
    NamedKey{"DEL", Key::Delete},
    NamedKey{"DELETE", Key::Delete},
    NamedKey{"INS", Key::Insert},
    NamedKey{"INSERT", Key::Insert},
    NamedKey{"HOME", Key::Home},
    NamedKey{"END", Key::End},
    NamedKey{"PGUP", Key::PageUp},
    NamedKey{"PGDN", Key::PageDown},
    NamedKey{"LEFT", Key::Left},
    NamedKey{"RIGHT", Key::Right},
    NamedKey{"UP", Key::Up},
    NamedKey{"DOWN", Key::Down},
    NamedKey{"F1", Key::F1},
    NamedKey{"F2", Key::F2},
    NamedKey{"F3", Key::F3},
    NamedKey{"F4", Key::F4},
    NamedKey{"F5", Key::F5},
    NamedKey{"F6", Key::F6},
    NamedKey{"F7", Key::F7},
    NamedKey{"F8", Key::F8},
    NamedKey{"F9", Key::F9},
    NamedKey{"F10", Key::F10},
    NamedKey{"F11", Key::F11},
    NamedKey{"F12", Key::F12},
    NamedKey{"F13", Key::F13},
    NamedKey{"F14", Key::F14},
    NamedKey{"F15", Key::F15},
    NamedKey{"F16", Key::F16},
    NamedKey{"CAPSLOCK", Key::CapsLock},
    NamedKey{"NUMLOCK", Key::NumLock},
    NamedKey{"SCROLLLOCK", Key::ScrollLock},
    NamedKey{"PRTSC", Key::PrintScreen},
    NamedKey{"BREAK", Key::Break},
    NamedKey{"HELP", Key::Help},
    NamedKey{"ADD", Key::Add},
    NamedKey{"SUBTRACT", Key::Subtract},
    NamedKey{"MULTIPLY", Key::Multiply},
    NamedKey{"DIVIDE", Key::Divide},
};

std::optional<Key> namedKey(const QString& name) {
    const QString upper = name.toUpper();
    for (const NamedKey& named : kNamedKeys)
        if (upper == QLatin1String(named.name))
            return named.key;
    return std::nullopt;
}

bool isModifier(QChar c) {
    return c == u'+' || c == u'^' || c == u'%';
}

Modifiers combined(Modifiers a, Modifiers b) {
    return {a.shift || b.shift, a.control || b.control, a.alt || b.alt};
}

// Reads one run; stops at the first error.
class Reader {
public:
    explicit Reader(const QString& text) : text_(text) {}

    SendKeysResult read() {
        KeyStrokes strokes;
        readSequence(strokes, Modifiers{}, -1);
        if (error_)
            return {{}, error_};
        return {strokes, std::nullopt};
    }

private:
    // Reads keys up to the end of the run, or up to the ")" that closes the group
    // opened at `groupStart` (-1 for the run itself).
    void readSequence(KeyStrokes& out, Modifiers outer, qsizetype groupStart) {
        Modifiers pending;
        while (!error_ && pos_ < text_.size()) {
            const QChar c = text_[pos_];
            if (isModifier(c)) {
                addModifier(pending, c);
                ++pos_;
                continue;
            }
            const Modifiers modifiers = combined(outer, pending);
            pending = {};
            if (c == u'(') {
                readSequence(out, modifiers, pos_++);
            } else if (c == u')') {
                if (groupStart < 0)
                    return fail(pos_, SendKeysError::Kind::UnopenedGroup);
                ++pos_;
                return;
            } else {
                readKey(out, modifiers);
            }
        }
        if (groupStart >= 0 && !error_)
            fail(groupStart, SendKeysError::Kind::UnclosedGroup);
    }

    static void addModifier(Modifiers& modifiers, QChar c) {
        if (c == u'+')
            modifiers.shift = true;
        else if (c == u'^')
            modifiers.control = true;
        else
            modifiers.alt = true;
    }

    void readKey(KeyStrokes& out, Modifiers modifiers) {
        const QChar c = text_[pos_];
        if (c == u'{')
            return readBraced(out, modifiers);
        ++pos_;
        if (c == u'~' || c == u'\n')
            return out.append(KeyStroke{Key::Enter, 0, modifiers});
        if (c == u'\r') {
            if (pos_ < text_.size() && text_[pos_] == u'\n')
                ++pos_;
            return out.append(KeyStroke{Key::Enter, 0, modifiers});
        }
        if (c == u'\t')
            return out.append(KeyStroke{Key::Tab, 0, modifiers});
        char32_t character = c.unicode();
        if (c.isHighSurrogate() && pos_ < text_.size() && text_[pos_].isLowSurrogate())
            character = QChar::surrogateToUcs4(c, text_[pos_++]);
        out.append(KeyStroke{Key::Character, character, modifiers});
    }

    // "{X}", "{NAME}", "{X n}" or "{NAME n}". The character right after "{" is
    // always content, which is what lets "{}}" type "}".
    void readBraced(KeyStrokes& out, Modifiers modifiers) {
        const qsizetype open = pos_;
        const qsizetype close = text_.indexOf(u'}', open + 2);
        if (open + 1 >= text_.size() || close < 0)
            return fail(open, SendKeysError::Kind::UnclosedBrace);
        pos_ = close + 1;
        QString name = text_.mid(open + 1, close - open - 1);
        int count = 1;
        if (const qsizetype blank = name.lastIndexOf(u' '); blank > 0 && !isOneCharacter(name)) {
            const auto parsed = repeatCount(name.mid(blank + 1));
            if (!parsed)
                return fail(open, SendKeysError::Kind::BadRepeatCount, name);
            count = *parsed;
            name = name.left(blank);
            if (!isOneCharacter(name))
                name = withoutTrailingBlanks(name);
        }
        KeyStroke stroke{Key::Character, 0, modifiers};
        if (isOneCharacter(name)) {
            stroke.character = name.toUcs4().constFirst();
        } else if (const auto key = namedKey(name)) {
            stroke.key = *key;
        } else {
            return fail(open, SendKeysError::Kind::UnknownKeyName, name);
        }
        for (int i = 0; i < count; ++i)
            out.append(stroke);
    }

    static bool isOneCharacter(const QString& text) { return text.toUcs4().size() == 1; }

    static QString withoutTrailingBlanks(QString text) {
        while (text.endsWith(u' '))
            text.chop(1);
        return text;
    }

    static std::optional<int> repeatCount(const QString& digits) {
        if (digits.isEmpty() || digits.size() > 5)
            return std::nullopt;
        for (QChar c : digits)
            if (c < u'0' || c > u'9')
                return std::nullopt;
        const int count = digits.toInt();
        return count <= kMaxRepeat ? std::optional<int>(count) : std::nullopt;
    }

    void fail(qsizetype position, SendKeysError::Kind kind, const QString& detail = {}) {
        error_ = SendKeysError{kind, position, detail};
    }

    const QString& text_;
    qsizetype pos_ = 0;
    std::optional<SendKeysError> error_;
};

QString keyName(Key key) {
    for (const NamedKey& named : kNamedKeys)
        if (named.key == key)
            return QLatin1String(named.name);
    return {};
}

} // namespace

SendKeysResult SendKeysParser::parse(const QString& keys) {
    return Reader(keys).read();
}

QString SendKeysParser::PlainKeys(const QString& keys) {
    QString plain;
    qsizetype i = 0;
    while (i < keys.size()) {
        const QChar c = keys[i];
        if (c == u'{') {
            const qsizetype close = keys.indexOf(u'}', i + 1);
            i = close < 0 ? keys.size() : close + 1;
        } else if (isModifier(c)) {
            i += (i + 1 < keys.size() && isModifier(keys[i + 1])) ? 3 : 2;
        } else {
            plain.append(c);
            ++i;
        }
    }
    return plain;
}

QString SendKeysParser::notation(const KeyStroke& stroke) {
    QString text;
    if (stroke.modifiers.shift)
        text += u'+';
    if (stroke.modifiers.control)
        text += u'^';
    if (stroke.modifiers.alt)
        text += u'%';
    if (stroke.key != Key::Character)
        return text + u'{' + keyName(stroke.key) + u'}';
    const QString character = QString::fromUcs4(&stroke.character, 1);
    // Braced, these read back as the character itself rather than as notation
    // or as the Enter and Tab keys that a bare line break or tab types.
    if (character.size() == 1 && QStringLiteral("+^%~(){}\r\n\t").contains(character))
        return text + u'{' + character + u'}';
    return text + character;
}

} // namespace mervak
