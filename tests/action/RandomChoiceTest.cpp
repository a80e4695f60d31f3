#include "action/RandomChoice.h"

#include "platform/Checked16.h"
#include "support/QtPrinters.h"

#include <QSet>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// Every result of many picks from one list.
QSet<QString> picks(const QString& list, int times = 400) {
    RandomChoice random(7);
    QSet<QString> seen;
    for (int i = 0; i < times; ++i)
        seen.insert(random.choose(list));
    return seen;
}

struct ChoiceCase {
    const char* name;
    QString list;
    QSet<QString> results; // every pick is one of these, and each one comes up
};

TEST(RandomChoice, PicksEachChoiceOrNumber) {
    const ChoiceCase cases[] = {
        {"texts", "[gat#gos#peix]", {"gat", "gos", "peix"}},
        {"choices are trimmed", "[ x1#x2 # x3 ]", {"x1", "x2", "x3"}},
        {"brackets are optional", "a#b", {"a", "b"}},
        {"one choice", "[sol]", {"sol"}},
        {"empty list", "[]", {""}},
        {"empty choices", "[#]", {""}},
        {"two numbers are a range", "[1#6]", {"1", "2", "3", "4", "5", "6"}},
        {"range in either order", "[3#1]", {"1", "2", "3"}},
        {"negative range", "[-2#0]", {"-2", "-1", "0"}},
        {"range of one", "[4#4]", {"4"}},
        {"range bound read with Val", "[2#x]", {"0", "1", "2"}},
        {"range bounds rounded half to even", "[0.5#2.5]", {"0", "1", "2"}},
        {"three numbers are choices", "[10#20#30]", {"10", "20", "30"}},
        {"text first is never a range", "[a#6]", {"a", "6"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(picks(c.list), c.results) << c.name;
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
