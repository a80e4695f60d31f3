#include "action/SendKeysParser.h"

#include "support/FakeKeyboard.h"
#include "support/QtPrinters.h"
#include "support/TestFiles.h"

#include <QDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::FakeKeyboard;

struct ParseCase {
    const char* name;
    QString keys;
    QString strokes; // as the fake keyboard writes them
};

TEST(SendKeysParser, ReadsTheNotation) {
    const ParseCase cases[] = {
        {"plain", "abc", "abc"},
        {"empty", "", ""},
        {"accents", "àçñ€¿¡l·l", "àçñ€¿¡l·l"},
        {"blank", "a b", "a b"},
        {"shift", "+a", "+a"},
        {"ctrl", "^c", "^c"},
        {"alt", "%f", "%f"},
        {"modifiers stack", "+^%x", "+^%x"},
        {"modifier is for one key", "+ab", "+ab"},
        {"group", "+(ab)c", "+a+bc"},
        {"nested groups", "^(a+(bc))", "^a+^b+^c"},
        {"group without modifier", "(ab)", "ab"},
        {"tilde", "a~", "a{ENTER}"},
        {"ctrl enter", "^~", "^{ENTER}"},
        {"named key", "{ENTER}", "{ENTER}"},
        {"names ignore case", "{enter}{Tab}", "{ENTER}{TAB}"},
        {"backspace aliases", "{BS}{BKSP}{BACKSPACE}", "{BS}{BS}{BS}"},
        {"more aliases", "{ESCAPE}{DELETE}{INSERT}", "{ESC}{DEL}{INS}"},
        {"function keys", "{F1}{F10}{F16}", "{F1}{F10}{F16}"},
        {"navigation", "{HOME}{END}{PGUP}{PGDN}{LEFT}{RIGHT}{UP}{DOWN}",
         "{HOME}{END}{PGUP}{PGDN}{LEFT}{RIGHT}{UP}{DOWN}"},
        {"locks and others", "{CAPSLOCK}{NUMLOCK}{SCROLLLOCK}{PRTSC}{BREAK}{HELP}",
         "{CAPSLOCK}{NUMLOCK}{SCROLLLOCK}{PRTSC}{BREAK}{HELP}"},
        {"keypad", "{ADD}{SUBTRACT}{MULTIPLY}{DIVIDE}", "{ADD}{SUBTRACT}{MULTIPLY}{DIVIDE}"},
        {"shift tab", "+{TAB}", "+{TAB}"},
        {"repeat named", "{LEFT 3}", "{LEFT}{LEFT}{LEFT}"},
        {"repeat character", "{a 5}", "aaaaa"},
        {"repeat zero", "x{a 0}y", "xy"},
        {"repeat with modifier", "+{a 2}", "+a+a"},
        {"repeat a brace", "{} 2}", "{}}{}}"},
        {"braced literals", "{+}{^}{%}{~}{(}{)}{{}{}}", "{+}{^}{%}{~}{(}{)}{{}{}}"},
        {"braced letter", "{a}", "a"},
        {"braced blank", "{ }", " "},
        {"line breaks type enter", "a\r\nb\nc\rd", "a{ENTER}b{ENTER}c{ENTER}d"},
        {"tab character", "a\tb", "a{TAB}b"},
        {"modifier at the end is dropped", "ab+", "ab"},
        {"modifier before a closing parenthesis is dropped", "(a+)b", "ab"},
        {"character outside the BMP", QString::fromUtf8("a\xF0\x9F\x98\x80"),
         QString::fromUtf8("a\xF0\x9F\x98\x80")},
    };
    for (const auto& c : cases) {
        const SendKeysResult result = SendKeysParser::parse(c.keys);
        EXPECT_FALSE(result.error.has_value()) << c.name;
        EXPECT_EQ(FakeKeyboard::describe(result.strokes), c.strokes) << c.name;
    }
}

TEST(SendKeysParser, KeepsCharactersAndModifiersApart) {
    const SendKeysResult result = SendKeysParser::parse(QString::fromUtf8("+\xF0\x9F\x98\x80"));
    ASSERT_EQ(result.strokes.size(), 1);
    EXPECT_EQ(result.strokes[0].key, Key::Character);
    EXPECT_EQ(result.strokes[0].character, U'\U0001F600');
    EXPECT_EQ(result.strokes[0].modifiers, (Modifiers{true, false, false}));
}

struct ErrorCase {
    const char* name;
    QString keys;
    SendKeysError error;
};

TEST(SendKeysParser, ReportsWhereTheNotationIsBroken) {
    using Kind = SendKeysError::Kind;
    const ErrorCase cases[] = {
        {"unknown name", "ab{FOO}", {Kind::UnknownKeyName, 2, "FOO"}},
        {"F17 does not exist", "{F17}", {Kind::UnknownKeyName, 0, "F17"}},
        {"unclosed brace", "abc{ENTER", {Kind::UnclosedBrace, 3, ""}},
        {"lone brace", "x{", {Kind::UnclosedBrace, 1, ""}},
        {"empty braces", "{}", {Kind::UnclosedBrace, 0, ""}},
        {"unclosed parenthesis", "a+(bc", {Kind::UnclosedGroup, 2, ""}},
        {"inner group unclosed", "(a(b)", {Kind::UnclosedGroup, 0, ""}},
        {"closing parenthesis alone", "ab)c", {Kind::UnopenedGroup, 2, ""}},
        {"bad repeat count", "x{LEFT 3a}", {Kind::BadRepeatCount, 1, "LEFT 3a"}},
        {"negative repeat count", "{a -1}", {Kind::BadRepeatCount, 0, "a -1"}},
        {"repeat count too large", "{a 32768}", {Kind::BadRepeatCount, 0, "a 32768"}},
        {"unknown name with a count", "{FOO 2}", {Kind::UnknownKeyName, 0, "FOO"}},
        {"error after good keys", "{ENTER}{TAB}{NOPE}", {Kind::UnknownKeyName, 12, "NOPE"}},
    };
    for (const auto& c : cases) {
        const SendKeysResult result = SendKeysParser::parse(c.keys);
        ASSERT_TRUE(result.error.has_value()) << c.name;
        EXPECT_EQ(result.error->kind, c.error.kind) << c.name;
        EXPECT_EQ(result.error->position, c.error.position) << c.name;
        EXPECT_EQ(result.error->detail, c.error.detail) << c.name;
        EXPECT_TRUE(result.strokes.isEmpty()) << c.name;
    }
}

TEST(SendKeysParser, RepeatCountsUpToTheLimit) {
    EXPECT_EQ(SendKeysParser::parse("{a 32767}").strokes.size(), 32767);
}

struct PlainCase {
    QString keys;
    QString plain;
};

TEST(SendKeysParser, PlainKeysShowsTheLiteralCharacters) {
    const PlainCase cases[] = {
        {"^cab{ENTER}+x", "ab"},
        {"", ""},
        {"hola", "hola"},
        {"+^ab", "b"},
        {"+^%ab", "ab"},
        {"a{TAB", "a"},
        {"{}}x", "}x"},
        {"+{ENTER}", "ENTER}"},
        {"x+", "x"},
        {"a~b", "a~b"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(SendKeysParser::PlainKeys(c.keys), c.plain) << c.keys;
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
    };
    for (const KeyStroke& stroke : strokes) {
        const QString text = SendKeysParser::notation(stroke);
        const SendKeysResult back = SendKeysParser::parse(text);
        ASSERT_EQ(back.strokes.size(), 1) << text;
        EXPECT_EQ(back.strokes[0], stroke) << text;
    }
}

// Texts the fuzzer found; every stroke they give must read back from its notation.
TEST(SendKeysParser, FuzzFindsReadBack) {
    const QDir finds(test::dataPath("action/fuzz"));
    const QStringList names = finds.entryList(QDir::Files);
    EXPECT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        const QString text = QString::fromUtf8(test::readAll(finds.filePath(name)));
        const SendKeysResult parsed = SendKeysParser::parse(text);
        for (const KeyStroke& stroke : parsed.strokes) {
            const QString notation = SendKeysParser::notation(stroke);
            EXPECT_EQ(SendKeysParser::parse(notation).strokes, KeyStrokes{stroke})
                << name << ": " << notation;
        }
    }
}

} // namespace
} // namespace mervak
