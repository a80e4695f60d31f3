#include "action/SendKeysParser.h"

#include "action/KeysPreview.h"
#include "support/FakeKeyboard.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::FakeKeyboard;

TEST(SendKeysParser, ReadsTheNotation) {
    const std::pair<QString, QString> cases[] = {
        // keys, strokes as the fake keyboard writes them
        {"ab àç€¿l·l", "ab àç€¿l·l"},
        {"", ""},
        {"+^%xy", "+^%xy"},
        {"^(a+(bc))d", "^a+^b+^cd"},
        {"a~^~", "a{ENTER}^{ENTER}"},
        {"{enter}+{Tab}", "{ENTER}+{TAB}"},
        {"{BKSP}{ESCAPE}", "{BS}{ESC}"},
        {"{F1}{F16}", "{F1}{F16}"},
        {"{LEFT 2}+{a 2}x{a 0}", "{LEFT}{LEFT}+a+ax"},
        {"{} 2}", "{}}{}}"},
        {"{+}{^}{%}{~}{(}{)}{{}{}}{a}{ }", "{+}{^}{%}{~}{(}{)}{{}{}}a "},
        {"a\r\nb\nc\rd\te", "a{ENTER}b{ENTER}c{ENTER}d{TAB}e"},
        {"(a+)b+", "ab"},
    };
    for (const auto& [keys, strokes] : cases) {
        const SendKeysResult result = SendKeysParser::parse(keys);
        EXPECT_FALSE(result.error.has_value()) << keys;
        EXPECT_EQ(FakeKeyboard::describe(result.strokes), strokes) << keys;
    }
}

TEST(SendKeysParser, ReportsWhereTheNotationIsBroken) {
    using Kind = SendKeysError::Kind;
    const std::pair<QString, SendKeysError> cases[] = {
        {"ab{FOO}", {Kind::UnknownKeyName, 2, "FOO"}},
        {"{F17}", {Kind::UnknownKeyName, 0, "F17"}},
        {"abc{ENTER", {Kind::UnclosedBrace, 3, ""}},
        {"{}", {Kind::UnclosedBrace, 0, ""}},
        {"a+(bc", {Kind::UnclosedGroup, 2, ""}},
        {"ab)c", {Kind::UnopenedGroup, 2, ""}},
        {"x{LEFT 3a}", {Kind::BadRepeatCount, 1, "LEFT 3a"}},
        {"{a 32768}", {Kind::BadRepeatCount, 0, "a 32768"}},
        {"{ENTER}{TAB}{NOPE}", {Kind::UnknownKeyName, 12, "NOPE"}},
    };
    for (const auto& [keys, error] : cases) {
        const SendKeysResult result = SendKeysParser::parse(keys);
        ASSERT_TRUE(result.error.has_value()) << keys;
        EXPECT_EQ(result.error->kind, error.kind) << keys;
        EXPECT_EQ(result.error->position, error.position) << keys;
        EXPECT_EQ(result.error->detail, error.detail) << keys;
        EXPECT_TRUE(result.strokes.isEmpty()) << keys;
    }
    EXPECT_EQ(SendKeysParser::parse("{a 32767}").strokes.size(), 32767) << "the largest count";
}

TEST(SendKeysParser, PlainKeysShowsTheLiteralCharacters) {
    const std::pair<QString, QString> cases[] = {
        {"^cab{ENTER}+x", "ab"}, {"+^ab", "b"}, {"+^%ab", "ab"}, {"a{TAB", "a"},
        {"+{ENTER}", "ENTER}"},  {"x+", "x"},   {"a~b", "a~b"},
    };
    for (const auto& [keys, plain] : cases)
        EXPECT_EQ(SendKeysParser::PlainKeys(keys), plain) << keys;
}

TEST(KeysPreview, ShowsWhatArrivesAndWhereTheNotationBreaks) {
    const std::tuple<QString, QString, qsizetype> cases[] = {
        // ActionText, preview, position of the error (-1 for none)
        {"1+1=2 (dos)", "1⟨Shift+1⟩=2 dos", -1},
        {"+hola~{TAB}^c%{F4}", "Hola⏎⇥⟨Ctrl+C⟩⟨Alt+F4⟩", -1},
        {"{LEFT 3}{a 12}{+}{(}^ ", "←←←a×12+(⟨Ctrl+␣⟩", -1},
        {"a{|Pagina 2}b{|EXECUTA c:\\programes\\x.exe}", "a⟦Pagina 2⟧b⟦EXECUTA c:\\prog…⟧", -1},
        {"ab{|Pagina 2}c{ENTR}d", "ab⟦Pagina 2⟧c", 14},
        {"{|CM }x(ab", "⟦CM⟧x", 7},
    };
    for (const auto& [text, preview, errorAt] : cases) {
        const KeysPreview result = KeysPreview::of(text);
        EXPECT_EQ(result.text, preview) << text;
        EXPECT_EQ(result.error ? result.error->position : -1, errorAt) << text;
    }
}

TEST(SendKeysParser, NotationReadsBackAsTheSameStroke) {
    const KeyStrokes strokes = {
        {Key::Character, U'a', {}},
        {Key::Character, U'+', {}},
        {Key::Character, U'}', {true, false, false}},
        {Key::Enter, 0, {false, true, false}},
        {Key::F12, 0, {true, true, true}},
        {Key::Character, U'€', {false, false, true}},
        {Key::Character, U'\r', {}},
        {Key::Character, U'\n', {false, true, false}},
        {Key::Character, U'\t', {}},
        {Key::Character, U'\U0001F600', {true, false, false}},
    };
    for (const KeyStroke& stroke : strokes) {
        const QString text = SendKeysParser::notation(stroke);
        EXPECT_EQ(SendKeysParser::parse(text).strokes, KeyStrokes{stroke}) << text;
    }
}

} // namespace
} // namespace mervak
