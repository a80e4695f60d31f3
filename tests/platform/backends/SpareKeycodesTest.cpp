#include "platform/x11/SpareKeycodes.h"

#include <gtest/gtest.h>

namespace mervak {

void PrintTo(const SpareKeycodes::Place& place, std::ostream* out) {
    *out << int(place.keycode) << (place.level == 1 ? "+Shift" : "");
}

void PrintTo(const SpareKeycodes::Change& change, std::ostream* out) {
    PrintTo(change.place, out);
    *out << "=0x" << std::hex << change.symbol << std::dec;
}

namespace {

using Change = SpareKeycodes::Change;
using Place = SpareKeycodes::Place;

// Character keysyms: they may take Shift places too.
SpareKeycodes withKeycodes(const QList<KeyCode8>& keycodes) {
    SpareKeycodes spares;
    spares.setKeycodes(keycodes);
    return spares;
}

TEST(SpareKeycodesTest, FreePlacesAreTakenInAscendingOrderBothLevelsOfAKey) {
    SpareKeycodes spares = withKeycodes({250, 200, 201});
    EXPECT_EQ(spares.capacity(), 6);
    EXPECT_EQ(spares.keycodes(), (QList<KeyCode8>{200, 201, 250}));
    const auto changes = spares.assign({0xe0, 0xe1, 0xe2}, {});
    ASSERT_TRUE(changes.has_value());
    EXPECT_EQ(*changes, (QList<Change>{{{200, 0}, 0xe0}, {{200, 1}, 0xe1}, {{201, 0}, 0xe2}}));
    EXPECT_EQ(spares.find(0xe1), (Place{200, 1}));
    EXPECT_FALSE(spares.find(0xe3).has_value());
    EXPECT_EQ(spares.symbolAt({7, 0}), kNoSymbol);
    EXPECT_EQ(spares.freeCount(), 3);
    EXPECT_EQ(spares.usedKeycodes(), (QList<KeyCode8>{200, 201}));
}

TEST(SpareKeycodesTest, TheLeastRecentlyUsedMakeWayButNeverTheKeptOnes) {
    SpareKeycodes spares = withKeycodes({10, 11});
    ASSERT_TRUE(spares.assign({0xe0, 0xe1, 0xe2, 0xe3}, {}));
    spares.touch(0xe0); // the oldest is now 0xe1, then 0xe2, 0xe3, 0xe0
    auto changes = spares.assign({0xe4}, {});
    ASSERT_TRUE(changes.has_value());
    EXPECT_EQ(*changes, (QList<Change>{{{10, 1}, 0xe4}}));
    changes = spares.assign({0xe5}, {0xe2});
    ASSERT_TRUE(changes.has_value());
    EXPECT_EQ(*changes, (QList<Change>{{{11, 1}, 0xe5}})) << "0xe2 is kept, 0xe3 is next oldest";
    EXPECT_EQ(spares.find(0xe2), (Place{11, 0}));
    EXPECT_FALSE(spares.find(0xe3).has_value());
    EXPECT_FALSE(spares.assign({0xe6, 0xe7, 0xe8}, {0xe0, 0xe2})) << "too many: nothing changes";
    EXPECT_EQ(spares.find(0xe0), (Place{10, 0}));
    EXPECT_FALSE(withKeycodes({}).assign({0xe0}, {}).has_value());
}

TEST(SpareKeycodesTest, NewKeycodeListsKeepWhatTheirKeysHold) {
    SpareKeycodes spares = withKeycodes({10, 11, 12});
    ASSERT_TRUE(spares.assign({0xe0, 0xe1, 0xe2, 0xe3, 0xe4}, {}));
    spares.setKeycodes({12, 11, 13});
    EXPECT_FALSE(spares.find(0xe0).has_value()) << "keycode 10 is no longer spare";
    EXPECT_EQ(spares.find(0xe2), (Place{11, 0}));
    EXPECT_EQ(spares.find(0xe4), (Place{12, 0}));
    EXPECT_EQ(spares.capacity(), 6);
    spares.release(11);
    EXPECT_EQ(spares.symbolAt({11, 1}), kNoSymbol);
    EXPECT_EQ(spares.freeCount(), 5);
    spares.clear();
    EXPECT_TRUE(spares.usedKeycodes().isEmpty());
}

// F13 under Shift would reach programs as Shift+F13: keys that type no character
// only take plain places, and go first so characters cannot crowd them out.
TEST(SpareKeycodesTest, KeysThatTypeNoCharacterTakeOnlyPlainPlaces) {
    constexpr KeySymbol f13 = 0xffca;
    constexpr KeySymbol f14 = 0xffcb;
    SpareKeycodes spares = withKeycodes({10, 11});
    auto changes = spares.assign({0xe9, f13, 0xf1}, {});
    ASSERT_TRUE(changes.has_value());
    EXPECT_EQ(*changes, (QList<Change>{{{10, 0}, f13}, {{10, 1}, 0xe9}, {{11, 0}, 0xf1}}));
    EXPECT_EQ(spares.freePlainCount(), 0);
    EXPECT_EQ(spares.freeCount(), 1);
    changes = spares.assign({f14}, {f13});
    ASSERT_TRUE(changes.has_value());
    EXPECT_EQ(*changes, (QList<Change>{{{11, 0}, f14}})) << "the oldest plain place is taken";
    EXPECT_FALSE(spares.assign({0xffcc}, {f13, f14}).has_value())
        << "a free Shift place does not do for a function key";
}

} // namespace
} // namespace mervak
