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
        {Key::PageUp, 0xff55}, {Key::F1, 0xffbe},          {Key::F16, 0xffcd},
        {Key::Add, 0xffab},    {Key::PrintScreen, 0xff61}, {Key::Character, kNoSymbol},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(keySymbolForKey(c.key), c.symbol) << static_cast<int>(c.key);
    }
    EXPECT_TRUE(isKeypadSymbol(keySymbolForKey(Key::Add)));
    EXPECT_FALSE(isKeypadSymbol(U'+'));
}

TEST(KeySymbolsTest, CharactersMapToLegacyElseUnicodeKeysyms) {
    struct Case {
        const char* name;
        char32_t character;
        KeySymbol symbol;
    };
    const Case cases[] = {
        {"à (Latin-1)", U'à', 0xe0},
        {"€ (legacy EuroSign)", U'€', 0x20ac},
        {"你", U'你', 0x1004f60},
        {"line feed is Return", U'\n', 0xff0d},
        {"delete", 0x7f, 0xffff},
        {"other control character", 0x01, kNoSymbol},
        {"C1 control character", 0x85, kNoSymbol},
        {"surrogate", 0xd800, kNoSymbol},
        {"beyond Unicode", 0x110000, kNoSymbol},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(keySymbolForCharacter(c.character), c.symbol) << c.name;
    }
}

} // namespace
} // namespace mervak
