#include "action/RandomChoice.h"

#include "platform/Checked16.h"
#include "support/QtPrinters.h"

#include <QSet>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// Every result of many picks from one list, sorted and joined by commas.
QString picks(const QString& list) {
    RandomChoice random(7);
    QSet<QString> seen;
    for (int i = 0; i < 400; ++i)
        seen.insert(random.choose(list));
    QStringList sorted(seen.begin(), seen.end());
    sorted.sort();
    return sorted.join(',');
}

TEST(RandomChoice, PicksEachChoiceOrNumber) {
    const std::pair<QString, QString> cases[] = {
        {"[gat#gos#peix]", "gat,gos,peix"}, // every pick is one of these, and each one comes up
        {"[ x1#x2 # x3 ]", "x1,x2,x3"},
        {"a#b", "a,b"},
        {"[]", ""},
        {"[1#6]", "1,2,3,4,5,6"},
        {"[3#1]", "1,2,3"},
        {"[4#4]", "4"},
        {"[2#x]", "0,1,2"},
        {"[10#20#30]", "10,20,30"},
        {"[a#6]", "6,a"},
    };
    for (const auto& [list, results] : cases)
        EXPECT_EQ(picks(list), results) << list;
}

TEST(RandomChoice, SameSeedSameSequence) {
    RandomChoice a(42);
    RandomChoice b(1);
    b.seed(42);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(a.choose("[1#1000]"), b.choose("[1#1000]")) << i;
}

TEST(RandomChoice, RangeBeyond32BitsOverflows) {
    RandomChoice random;
    EXPECT_THROW(random.choose("[1#1e10]"), Overflow16);
    EXPECT_NO_THROW(random.choose("[-2147483648#2147483647]"));
}

} // namespace
} // namespace mervak
