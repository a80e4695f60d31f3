#include "support/FakeKeyboard.h"

#include <QTimer>

namespace mervak::test {

namespace {

// In the order of the Key enumeration, Key::Character excluded.
const char* const kKeyNames[] = {
    "ENTER",      "TAB",   "BS",    "ESC",   "DEL", "INS",      "HOME",     "END",
    "PGUP",       "PGDN",  "LEFT",  "RIGHT", "UP",  "DOWN",     "F1",       "F2",
    "F3",         "F4",    "F5",    "F6",    "F7",  "F8",       "F9",       "F10",
    "F11",        "F12",   "F13",   "F14",   "F15", "F16",      "CAPSLOCK", "NUMLOCK",
    "SCROLLLOCK", "PRTSC", "BREAK", "HELP",  "ADD", "SUBTRACT", "MULTIPLY", "DIVIDE"};

static_assert(std::size(kKeyNames) == static_cast<size_t>(Key::Divide));

QString describeStroke(const KeyStroke& stroke) {
    QString text;
    if (stroke.modifiers.shift)
        text += u'+';
    if (stroke.modifiers.control)
        text += u'^';
    if (stroke.modifiers.alt)
        text += u'%';
    if (stroke.key == Key::Character) {
        const QString character = QString::fromUcs4(&stroke.character, 1);
        if (QStringLiteral("+^%~(){}").contains(character))
            return text + u'{' + character + u'}';
        return text + character;
    }
    return text + u'{' + QLatin1String(kKeyNames[static_cast<int>(stroke.key) - 1]) + u'}';
}

} // namespace

QString FakeKeyboard::describe(const KeyStrokes& strokes) {
    QString text;
    for (const KeyStroke& stroke : strokes)
        text += describeStroke(stroke);
    return text;
}

std::optional<TypingError> FakeKeyboard::type(const KeyStrokes& strokes) {
    if (failure_)
        return failure_;
    typed_.append(strokes);
    logTo(log_, QStringLiteral("type ") + describe(strokes));
    return std::nullopt;
}

void FakeKeyboard::flush(std::function<void()> done) {
    ++flushes_;
    logTo(log_, QStringLiteral("flush"));
    if (hold_)
        held_.append(std::move(done));
    else
        QTimer::singleShot(0, std::move(done));
}

void FakeKeyboard::releaseFlushes() {
    const auto held = std::exchange(held_, {});
    for (const auto& done : held)
        done();
}

} // namespace mervak::test
