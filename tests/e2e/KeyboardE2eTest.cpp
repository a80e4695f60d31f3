#include "X11TestFixture.h"
#include "support/TestFiles.h"

#include <QElapsedTimer>
#include <QProcess>
#include <X11/Xlib.h>
#include <algorithm>

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

// ASCII is on the map; characters missing from it are mapped once per run, not once
// per character, and stay mapped for the next run. More of them than spare keycodes:
// they come in batches, the least recently used making way, characters of an early
// batch coming back in a later one. Untypeable strokes are refused whole before any
// is sent. restoreLayout() gives the map back exactly, and so does the keyboard's end.
TEST_F(X11TestFixture, TypesAnyTextWithFewKeymapChangesAndLeavesTheMapAsFound) {
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak text"), &terminal));
    const std::vector<KeySym> before = keyboardMap(connection_->display());
    QString ascii;
    for (char c = 0x20; c < 0x7f; ++c)
        ascii += QLatin1Char(c);
    ascii = ascii.repeated(10);
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(ascii)));
    EXPECT_EQ(keyboard_->keymapChanges(), 0) << "ASCII is on the keyboard map";
    const QString text = QStringLiteral("àéíòúç ñ €  ŀ Ω 你 l·l ¿¡ ÀÉÍÒÚÇÑ");
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(text.repeated(5))));
    EXPECT_EQ(keyboard_->keymapChanges(), 1) << "all the missing characters in one change";
    for (char32_t bad : {char32_t(0x01), char32_t(0xd800), char32_t(0)})
        EXPECT_EQ(keyboard_->type({character(U'a'), character(bad)}),
                  (TypingError{TypingError::Reason::KeyNotTypeable, character(bad), {}}))
            << unsigned(bad);
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(text)));
    EXPECT_EQ(keyboard_->keymapChanges(), 1) << "the second run reuses them";

    QString many;
    for (char32_t c = 0x4e00; c < 0x4e00 + 400; ++c)
        many += QString::fromUcs4(&c, 1);
    many += QStringLiteral("你好") + text.left(10); // typed near the start of the run too
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(many)));
    // Xvfb's keyboard leaves 19 keycodes free, 38 places: 412 characters need 11 changes.
    EXPECT_LE(keyboard_->keymapChanges(), 13) << "changes come in batches";
    const QByteArray expected = (ascii + text.repeated(6) + many).toUtf8();
    EXPECT_EQ(waitForContent(terminal.file, expected.size()), expected);
    EXPECT_NE(keyboardMap(connection_->display()), before);
    bool restored = false;
    keyboard_->restoreLayout([&restored] { restored = true; });
    ASSERT_TRUE(waitFor([&restored] { return restored; }));
    EXPECT_EQ(keyboardMap(connection_->display()), before);

    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(text)));
    EXPECT_EQ(waitForContent(terminal.file, expected.size() + text.toUtf8().size()),
              expected + text.toUtf8());
    keyboard_.reset();
    EXPECT_EQ(keyboardMap(connection_->display()), before);
}

// The target goes away in the middle of a long text of many batches: what it got is
// the text's beginning, no key (Shift above all) stays down, and the map is restored.
TEST_F(X11TestFixture, ATargetClosingMidTextLeavesNoKeyDownAndTheMapAsFound) {
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak closing"), &terminal));
    const std::vector<KeySym> before = keyboardMap(connection_->display());
    QString text;
    for (char32_t c = 0x100; c < 0x100 + 300; ++c) // Latin Extended: Shift levels too
        text += QString::fromUcs4(&c, 1) + QStringLiteral("àÀ");
    ASSERT_TRUE(windows_->activate(terminal.window));
    ASSERT_EQ(keyboard_->type(charactersOf(text)), std::nullopt);
    ASSERT_TRUE(waitFor([&] { return !readAll(terminal.file).isEmpty(); }));
    terminal.process->kill();
    bool restored = false;
    keyboard_->restoreLayout([&restored] { restored = true; });
    ASSERT_TRUE(waitFor([&restored] { return restored; }));
    const QByteArray got = readAll(terminal.file);
    EXPECT_TRUE(text.toUtf8().startsWith(got)) << got.toStdString();
    EXPECT_LT(got.size(), text.toUtf8().size()) << "the target closed after the text";
    char keys[32];
    XQueryKeymap(connection_->display(), keys);
    EXPECT_EQ(std::count(std::begin(keys), std::end(keys), 0), 32) << "a key is still down";
    EXPECT_EQ(keyboardMap(connection_->display()), before);
}

// A press comes while the layout is being given back, as in the running program when
// the pupil pauses just long enough: its keys arrive whole, and the map is given back
// only after them.
TEST_F(X11TestFixture, KeysTypedDuringARestoreArriveWholeAndTheMapIsGivenBackAfter) {
    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak pause"), &terminal));
    const std::vector<KeySym> before = keyboardMap(connection_->display());
    const QString text = QStringLiteral("àéíòúç ñ € ŀ ¿¡ ÀÉÍÒÚÇÑ").repeated(20);
    ASSERT_TRUE(windows_->activate(terminal.window));
    ASSERT_EQ(keyboard_->type(charactersOf(text)), std::nullopt);
    bool restored = false;
    keyboard_->restoreLayout([&restored] { restored = true; });
    QElapsedTimer pause;
    pause.start();
    waitFor([&pause] { return pause.elapsed() >= X11Keyboard::kEvictSettleMs / 2; });
    ASSERT_EQ(keyboard_->type(charactersOf(text)), std::nullopt);
    ASSERT_TRUE(waitFor([&restored] { return restored; }));
    const QByteArray expected = text.repeated(2).toUtf8();
    EXPECT_EQ(waitForContent(terminal.file, expected.size()), expected);
    EXPECT_EQ(keyboardMap(connection_->display()), before);
}

// Named keys and modifiers the key runs of the other tests do not use, as the terminal
// encodes them.
TEST_F(X11TestFixture, TypesNamedKeysAndModifiers) {
    struct Case {
        const char* name;
        KeyStrokes strokes;
        QByteArray expected;
    };
    const Case cases[] = {
        {"Shift+Tab", {named(Key::Tab, {true, false, false})}, "\x1b[Z"},
        {"F13", {named(Key::F13)}, "\x1b[25~"},
        {"Add", {named(Key::Add)}, "+"},
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
        ASSERT_EQ(waitForContent(terminal.file, expected.size()), expected) << c.name;
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
    if (layout == nullptr)
        GTEST_SKIP() << "setxkbmap is not available: " << error.toStdString();
    ASSERT_TRUE(layout->waitForFinished(10000));
    ASSERT_EQ(layout->exitCode(), 0);
    const QString text = QStringLiteral("ñç€@#[]{}\\|ºª¬ Ñ");
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, charactersOf(text)));
    const QByteArray expected = text.toUtf8();
    EXPECT_EQ(waitForContent(terminal.file, expected.size()), expected);
    EXPECT_EQ(keyboard_->keymapChanges(), 0);
}

} // namespace
} // namespace mervak::test
