#include "action/MemoryRegister.h"

#include "platform/Checked16.h"
#include "support/QtPrinters.h"

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

} // namespace
} // namespace mervak
