#include "platform/x11/KeySymbols.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(KeySymbolsTest, NamedKeysMapToTheirKeysyms) {
    struct Case {
        Key key;
        KeySymbol symbol;
    };
    const Case cases[] = {
        {Key::Enter, 0xff0d},    {Key::Backspace, 0xff08},  {Key::PageUp, 0xff55},
        {Key::PageDown, 0xff56}, {Key::F1, 0xffbe},         {Key::F12, 0xffc9},
        {Key::F16, 0xffcd},      {Key::Add, 0xffab},        {Key::Subtract, 0xffad},
        {Key::Multiply, 0xffaa}, {Key::Divide, 0xffaf},     {Key::PrintScreen, 0xff61},
        {Key::Break, 0xff6b},    {Key::Help, 0xff6a},       {Key::CapsLock, 0xffe5},
        {Key::NumLock, 0xff7f},  {Key::ScrollLock, 0xff14}, {Key::Character, kNoSymbol},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(keySymbolForKey(c.key), c.symbol) << static_cast<int>(c.key);
    }
}

TEST(KeySymbolsTest, CharactersMapToLegacyElseUnicodeKeysyms) {
    struct Case {
        const char* name;
        char32_t character;
        KeySymbol symbol;
    };
    const Case cases[] = {
        {"a", U'a', 0x61},
        {"à (Latin-1)", U'à', 0xe0},
        {"€ (legacy EuroSign)", U'€', 0x20ac},
        {"ŀ", U'ŀ', 0x1000140},
        {"你", U'你', 0x1004f60},
        {"line feed is Return", U'\n', 0xff0d},
        {"carriage return", U'\r', 0xff0d},
        {"tab", U'\t', 0xff09},
        {"escape", 0x1b, 0xff1b},
        {"delete", 0x7f, 0xffff},
        {"other control character", 0x01, kNoSymbol},
        {"C1 control character", 0x85, kNoSymbol},
        {"surrogate", 0xd800, kNoSymbol},
        {"beyond Unicode", 0x110000, kNoSymbol},
        {"noncharacter", 0xfffe, kNoSymbol},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(keySymbolForCharacter(c.character), c.symbol) << c.name;
    }
}

TEST(KeySymbolsTest, KeysymsGiveBackTheirCharacters) {
    EXPECT_EQ(characterOfKeySymbol(0x20ac), U'€');
    EXPECT_EQ(characterOfKeySymbol(0x1004f60), U'你');
    EXPECT_EQ(characterOfKeySymbol(0xffb1), U'1') << "KP_1";
    EXPECT_EQ(characterOfKeySymbol(0xfe51), 0u) << "dead_acute types nothing by itself";
    EXPECT_EQ(characterOfKeySymbol(0xffbe), 0u) << "F1";
    EXPECT_TRUE(isKeypadSymbol(0xffab));
    EXPECT_FALSE(isKeypadSymbol(0x2b));
}

} // namespace
} // namespace mervak
