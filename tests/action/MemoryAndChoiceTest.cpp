#include "action/MemoryRegister.h"
#include "action/RandomChoice.h"
#include "platform/Checked16.h"
#include "support/QtPrinters.h"

#include <QSet>
#include <gtest/gtest.h>
#include <optional>

namespace mervak {
namespace {

using Operation = QString (*)(const QString&, const QString&);

struct RegisterCase {
    Operation operation;
    QString memory;
    QString argument;
    std::optional<QString> result; // nothing: Overflow16
};

TEST(MemoryRegister, AddsOrAppendsAndSubtractsOnlyFromNumbers) {
    const Operation add = MemoryRegister::added;
    const Operation sub = MemoryRegister::subtracted;
    const RegisterCase cases[] = {
        {add, "", "abc", "abc"},  {add, "abc", "5", "abc5"},      {add, "5", "2", "7"},
        {add, "5", "abc", "5"},   {add, "32766", "1", "32767"},   {add, "32767", "1", {}},
        {add, "40000", "0", {}},  {add, "0", "40000", {}},        {sub, "abc", "3", "abc"},
        {sub, "10", "3", "7"},    {sub, "-32767", "1", "-32768"}, {sub, "-32768", "1", {}},
        {sub, "32767", "-1", {}},
    };
    for (const auto& c : cases) {
        const std::string name = (c.operation == add ? "add " : "subtract ") +
                                 c.argument.toStdString() + " to " + c.memory.toStdString();
        if (c.result) {
            EXPECT_EQ(c.operation(c.memory, c.argument), *c.result) << name;
        } else {
            EXPECT_THROW(c.operation(c.memory, c.argument), Overflow16) << name;
        }
    }
}

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

TEST(RandomChoice, RangeBeyond32BitsOverflows) {
    RandomChoice random;
    EXPECT_THROW(random.choose("[1#1e10]"), Overflow16);
    EXPECT_NO_THROW(random.choose("[-2147483648#2147483647]"));
}

} // namespace
} // namespace mervak
