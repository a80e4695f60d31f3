#include "action/MemoryRegister.h"

#include "platform/Checked16.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>
#include <optional>

namespace mervak {
namespace {

struct RegisterCase {
    const char* name;
    QString memory;
    QString argument;
    std::optional<QString> result; // nothing: Overflow16
};

TEST(MemoryRegister, AddsOrAppends) {
    const RegisterCase cases[] = {
        {"empty register is not a number", "", "abc", "abc"},
        {"number onto empty register", "", "5", "5"},
        {"text then number", "abc", "5", "abc5"},
        {"sum", "5", "2", "7"},
        {"negative", "5", "-7", "-2"},
        {"register with blanks is a number", " 5 ", "1", "6"},
        {"hexadecimal register", "&H10", "1", "17"},
        {"text argument counts as 0", "5", "abc", "5"},
        {"halves round to even", "2", "2.5", "4"},
        {"top of the range", "32766", "1", "32767"},
        {"overflow", "32767", "1", std::nullopt},
        {"register beyond 16 bits", "40000", "0", std::nullopt},
        {"argument beyond 16 bits", "0", "40000", std::nullopt},
    };
    for (const auto& c : cases) {
        if (c.result) {
            EXPECT_EQ(MemoryRegister::added(c.memory, c.argument), *c.result) << c.name;
        } else {
            EXPECT_THROW(MemoryRegister::added(c.memory, c.argument), Overflow16) << c.name;
        }
    }
}

TEST(MemoryRegister, SubtractsOnlyFromNumbers) {
    const RegisterCase cases[] = {
        {"text stays", "abc", "3", "abc"},
        {"empty stays", "", "3", ""},
        {"difference", "10", "3", "7"},
        {"below zero", "1", "3", "-2"},
        {"bottom of the range", "-32767", "1", "-32768"},
        {"overflow", "-32768", "1", std::nullopt},
        {"overflow upwards", "32767", "-1", std::nullopt},
    };
    for (const auto& c : cases) {
        if (c.result) {
            EXPECT_EQ(MemoryRegister::subtracted(c.memory, c.argument), *c.result) << c.name;
        } else {
            EXPECT_THROW(MemoryRegister::subtracted(c.memory, c.argument), Overflow16) << c.name;
        }
    }
}

} // namespace
} // namespace mervak
