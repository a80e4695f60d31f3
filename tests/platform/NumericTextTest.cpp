#include "platform/NumericText.h"

#include "platform/Checked16.h"

#include <gtest/gtest.h>
#include <limits>

namespace mervak {
namespace {

TEST(Val, ReadsTheNumericPrefix) {
    const std::pair<const char*, double> cases[] = {
        {"abc", 0},         {"  12", 12},  {"12abc", 12},  {"1 2 3", 123},     {"\t-7", -7},
        {"--5", 0},         {".5", 0.5},   {"1E-2", 0.01}, {"2d2", 200},       {"1e", 1},
        {"1.2.3", 1.2},     {"&h1fz", 31}, {"&HFFFF", -1}, {"&H8000", -32768}, {"&H10000", 65536},
        {"&HFFFFFFFF", -1}, {"&O17", 15},  {"&17", 15},    {"&18", 1},         {"&H", 0},
        {"5,5", 5}};
    for (const auto& [text, value] : cases)
        EXPECT_DOUBLE_EQ(Val(QString::fromUtf8(text)), value) << text;
}

TEST(IsNumeric, AcceptsOnlyWholeNumbers) {
    const std::pair<const char*, bool> cases[] = {{"   ", false}, {" 5 ", true},  {"-5.5", true},
                                                  {"1e3", true},  {"&H1F", true}, {"&HG", false},
                                                  {"5a", false},  {".", false},   {"+", false},
                                                  {"1 2", false}, {"1e", false}};
    for (const auto& [text, numeric] : cases)
        EXPECT_EQ(IsNumeric(QString::fromUtf8(text)), numeric) << text;
}

TEST(NumberToText, WritesIntegersWithoutPoint) {
    EXPECT_EQ(numberToText(7), QStringLiteral("7"));
    EXPECT_EQ(numberToText(-32769), QStringLiteral("-32769"));
    EXPECT_EQ(numberToText(2.5), QStringLiteral("2.5"));
    EXPECT_EQ(numberToText(1e20), QStringLiteral("1E+20"));
}

TEST(Checked16, NarrowsAtTheBoundaries) {
    EXPECT_EQ(toInt16(32767), 32767);
    EXPECT_EQ(toInt16(-32768), -32768);
    EXPECT_THROW(toInt16(32768), Overflow16);
    EXPECT_THROW(toInt16(-32769), Overflow16);
    EXPECT_EQ(add16(32766, 1), 32767);
    EXPECT_THROW(add16(32767, 1), Overflow16);
    EXPECT_THROW(sub16(-32768, 1), Overflow16);
    EXPECT_THROW(mul16(200, 200), Overflow16);
}

TEST(Checked16, RoundsHalvesToEvenAndFloors) {
    struct Case {
        double value;
        int16_t rounded;
        int16_t floored;
    };
    for (const Case c : {Case{0.5, 0, 0}, Case{1.5, 2, 1}, Case{2.5, 2, 2}, Case{-0.5, 0, -1},
                         Case{-1.5, -2, -2}, Case{32767.4, 32767, 32767}}) {
        EXPECT_EQ(roundToInt16(c.value), c.rounded) << c.value;
        EXPECT_EQ(floorToInt16(c.value), c.floored) << c.value;
    }
    EXPECT_EQ(roundToInt16(-32768.4), -32768);
    EXPECT_THROW(floorToInt16(-32768.4), Overflow16);
    EXPECT_THROW(roundToInt16(32767.5), Overflow16);
    EXPECT_THROW(roundToInt16(std::numeric_limits<double>::quiet_NaN()), Overflow16);
    EXPECT_EQ(roundToInt32(2.5), 2);
    EXPECT_THROW(roundToInt32(3e9), Overflow16);
}

} // namespace
} // namespace mervak
