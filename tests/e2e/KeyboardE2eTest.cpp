#include "X11TestFixture.h"

#include <QProcess>
#include <X11/Xlib.h>

namespace mervak::test {
namespace {

// The whole keyboard map as core clients see it.
std::vector<KeySym> keyboardMap(Display* display) {
    int first = 0;
    int last = 0;
    int perKeycode = 0;
    XDisplayKeycodes(display, &first, &last);
    KeySym* symbols = XGetKeyboardMapping(display, first, last - first + 1, &perKeycode);
    std::vector<KeySym> map(symbols, symbols + std::ptrdiff_t{last - first + 1} * perKeycode);
    XFree(symbols);
    return map;
}

KeyStroke named(Key key, Modifiers modifiers = {}) {
    return {key, 0, modifiers};
}

KeyStroke character(char32_t c, Modifiers modifiers = {}) {
    return {Key::Character, c, modifiers};
}

constexpr Modifiers kShift{true, false, false};
constexpr Modifiers kControl{false, true, false};
constexpr Modifiers kAlt{false, false, true};

// Every printable ASCII character, then a long run of text, arrive whole and in order.
TEST_F(X11TestFixture, TypesPlainAsciiAndLongRunsExactly) {
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak ascii"), &terminal));
    QString text;
    for (char c = 0x20; c < 0x7f; ++c) {
        text += QLatin1Char(c);
    }
    const QString sentence =
        QStringLiteral("The quick brown fox jumps over the lazy dog 0123456789. ");
    for (int i = 0; i < 100; ++i) {
        text += sentence;
    }
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(text)));
    const QByteArray expected = text.toUtf8();
    EXPECT_EQ(waitForContent(terminal.file, expected.size()), expected);
    EXPECT_EQ(keyboard_->keymapChanges(), 0) << "ASCII is on the keyboard map";
}

// Characters missing from the map are mapped once per run, not once per character,
// and stay mapped for the next run.
TEST_F(X11TestFixture, TypesAccentedAndNonLatinTextWithFewKeymapChanges) {
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak accents"), &terminal));
    const QString text = QStringLiteral("àéíòúç ñ €  ŀ Ω 你 l·l ¿¡ ÀÉÍÒÚÇÑ");
    QString repeated;
    for (int i = 0; i < 20; ++i) {
        repeated += text;
    }
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(repeated)));
    const int changesAfterFirstRun = keyboard_->keymapChanges();
    EXPECT_EQ(changesAfterFirstRun, 1) << "all the missing characters in one change";
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(text)));
    EXPECT_EQ(keyboard_->keymapChanges(), changesAfterFirstRun) << "the second run reuses them";
    const QByteArray expected = (repeated + text).toUtf8();
    EXPECT_EQ(waitForContent(terminal.file, expected.size()), expected);
}

// The spare keycodes are cleared when the keyboard goes: other programs find the map
// as it was.
TEST_F(X11TestFixture, LeavesTheKeyboardMapAsItFoundIt) {
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak restore"), &terminal));
    const std::vector<KeySym> before = keyboardMap(connection_->display());
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(QStringLiteral("àéíòú €ŀ你"))));
    EXPECT_NE(keyboardMap(connection_->display()), before);
    keyboard_.reset();
    EXPECT_EQ(keyboardMap(connection_->display()), before);
}

// More distinct missing characters than spare keycodes: the least recently used make
// way, in several changes, and every character still arrives as typed.
TEST_F(X11TestFixture, EvictsLeastRecentlyUsedWhenSpareKeycodesRunOut) {
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak many"), &terminal));
    QString text;
    for (char32_t c = 0x4e00; c < 0x4e00 + 400; ++c) {
        text += QString::fromUcs4(&c, 1);
    }
    text += QStringLiteral("你好"); // typed near the start of a run too
    const QString again = QStringLiteral("你") + text.left(10);
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(text)));
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(again)));
    const QByteArray expected = (text + again).toUtf8();
    EXPECT_EQ(waitForContent(terminal.file, expected.size()), expected);
    // Xvfb's keyboard leaves 19 keycodes free, 38 places: 402 characters need 11
    // changes, and the second run one more.
    EXPECT_LE(keyboard_->keymapChanges(), 13) << "changes come in batches";
}

// Named keys and modifiers, as the terminal encodes them.
TEST_F(X11TestFixture, TypesNamedKeysAndModifiers) {
    struct Case {
        const char* name;
        KeyStrokes strokes;
        QByteArray expected;
    };
    const Case cases[] = {
        {"Enter", {named(Key::Enter)}, "\r"},
        {"line feed character", {character(U'\n')}, "\r"},
        {"Tab", {named(Key::Tab)}, "\t"},
        {"Shift+Tab", {named(Key::Tab, kShift)}, "\x1b[Z"},
        {"Backspace", {named(Key::Backspace)}, "\x7f"},
        {"Escape", {named(Key::Escape)}, "\x1b"},
        {"Delete", {named(Key::Delete)}, "\x1b[3~"},
        {"Insert", {named(Key::Insert)}, "\x1b[2~"},
        {"Home", {named(Key::Home)}, "\x1b[H"},
        {"End", {named(Key::End)}, "\x1b[F"},
        {"PageUp", {named(Key::PageUp)}, "\x1b[5~"},
        {"PageDown", {named(Key::PageDown)}, "\x1b[6~"},
        {"Left", {named(Key::Left)}, "\x1b[D"},
        {"Right", {named(Key::Right)}, "\x1b[C"},
        {"Up", {named(Key::Up)}, "\x1b[A"},
        {"Down", {named(Key::Down)}, "\x1b[B"},
        {"F1", {named(Key::F1)}, "\x1bOP"},
        {"F5", {named(Key::F5)}, "\x1b[15~"},
        {"F12", {named(Key::F12)}, "\x1b[24~"},
        {"F13", {named(Key::F13)}, "\x1b[25~"},
        {"F16", {named(Key::F16)}, "\x1b[29~"},
        {"Help", {named(Key::Help)}, "\x1b[28~"},
        {"Add", {named(Key::Add)}, "+"},
        {"Subtract", {named(Key::Subtract)}, "-"},
        {"Multiply", {named(Key::Multiply)}, "*"},
        {"Divide", {named(Key::Divide)}, "/"},
        {"Shift+a", {character(U'a', kShift)}, "A"},
        {"Shift+1", {character(U'1', kShift)}, "!"},
        {"Ctrl+a", {character(U'a', kControl)}, "\x01"},
        {"Ctrl+z", {character(U'z', kControl)}, "\x1a"},
        {"Alt+x", {character(U'x', kAlt)}, "\x1bx"},
        {"Ctrl+Alt+b", {character(U'b', {false, true, true})}, "\x1b\x02"},
        {"Caps Lock on and off",
         {named(Key::CapsLock), character(U'a'), character(U'b'), named(Key::CapsLock),
          character(U'c')},
         "ABc"},
    };
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak keys"), &terminal));
    QByteArray expected;
    for (const Case& c : cases) {
        // A marker after each case keeps a wrong sequence from hiding in the next one.
        ASSERT_NO_FATAL_FAILURE(typeInto(terminal, c.strokes + charactersOf(QStringLiteral("|"))))
            << c.name;
        expected += c.expected + "|";
        const QByteArray content = waitForContent(terminal.file, expected.size());
        ASSERT_EQ(content, expected) << c.name;
    }
}

// With a layout that has AltGr characters, they are typed with AltGr, no remapping;
// the keyboard notices the new layout by itself.
TEST_F(X11TestFixture, TypesAltGrCharactersOfTheLayoutWithoutRemapping) {
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak layout"), &terminal));
    QString error;
    QProcess* layout =
        session_->startProgram(QStringLiteral("setxkbmap"), {QStringLiteral("es")}, &error);
    if (layout == nullptr) {
        GTEST_SKIP() << "setxkbmap is not available: " << error.toStdString();
    }
    ASSERT_TRUE(layout->waitForFinished(10000));
    ASSERT_EQ(layout->exitCode(), 0);
    const QString text = QStringLiteral("ñç€@#[]{}\\|ºª¬ Ñ");
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(text)));
    const QByteArray expected = text.toUtf8();
    EXPECT_EQ(waitForContent(terminal.file, expected.size()), expected);
    EXPECT_EQ(keyboard_->keymapChanges(), 0);
}

// A pause between strokes still delivers every key, in order, from the event loop.
TEST_F(X11TestFixture, TypesWithAKeyDelay) {
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak delay"), &terminal));
    keyboard_->setKeyDelayMs(3);
    const QString text = QStringLiteral("slow ñ typing €");
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(text)));
    const QByteArray expected = text.toUtf8();
    EXPECT_EQ(waitForContent(terminal.file, expected.size()), expected);
}

// Strokes that cannot be typed are refused whole, with a reason, before any is sent.
TEST_F(X11TestFixture, RefusesUntypeableCharactersWholeRun) {
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak refused"), &terminal));
    ASSERT_TRUE(windows_->activate(terminal.window));
    const char32_t bad[] = {0x01, 0x9b, 0xd800, 0x110000, 0};
    for (char32_t c : bad) {
        QString error;
        EXPECT_FALSE(keyboard_->type({character(U'a'), character(c)}, &error)) << unsigned(c);
        EXPECT_TRUE(error.contains(QStringLiteral("cannot be typed"))) << error.toStdString();
    }
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(QStringLiteral("ok"))));
    EXPECT_EQ(waitForContent(terminal.file, 2), QByteArray("ok"));
}

} // namespace
} // namespace mervak::test
