#include "platform/Checked16.h"
#include "platform/NumericText.h"
#include "platform/TextEncoding.h"

#include <gtest/gtest.h>
#include <limits>

namespace mervak {
namespace {

TEST(Val, ReadsTheNumericPrefix) {
    const std::pair<const char*, double> cases[] = {
        {"abc", 0},         {"  12", 12},       {"12abc", 12}, {"1 2 3", 123}, {"\t-7", -7},
        {"--5", 0},         {"+5", 5},          {".5", 0.5},   {"1E-2", 0.01}, {"2d2", 200},
        {"1e", 1},          {"1.2.3", 1.2},     {"&h1fz", 31}, {"&HFFFF", -1}, {"&H8000", -32768},
        {"&H10000", 65536}, {"&HFFFFFFFF", -1}, {"&O17", 15},  {"&17", 15},    {"&18", 1},
        {"&H", 0},          {"5,5", 5}};
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

TEST(Windows1252, EveryByteSurvivesARoundTrip) {
    QByteArray all;
    for (int i = 0; i < 256; ++i)
        all.append(static_cast<char>(i));
    const QString text = fromWindows1252(all);
    EXPECT_TRUE(fitsWindows1252(text));
    EXPECT_EQ(toWindows1252(text), all);
    EXPECT_EQ(fromWindows1252("\x80\x9c\xb6\xe0"), QStringLiteral("€œ¶à"));
    EXPECT_FALSE(fitsWindows1252(QStringLiteral("Ω")));
    EXPECT_EQ(toWindows1252(QStringLiteral("aΩ")), QByteArray("a?"));
}

TEST(FileText, ReadsUtf8OnlyWhenItHoldsValidMultiByteSequences) {
    constexpr FileEncoding kLegacy = FileEncoding::Windows1252;
    const std::pair<QByteArray, FileEncoding> cases[] = {
        {"abc", kLegacy},      {"pla\xc3\xa7", FileEncoding::Utf8},
        {"pla\xe7", kLegacy},  {"a\xc3", kLegacy},
        {"\xc0\xaf", kLegacy}, {"\xed\xa0\x80", kLegacy}};
    for (const auto& [bytes, encoding] : cases) {
        const auto decoded = decodeFileText(bytes);
        EXPECT_EQ(decoded.encoding, encoding) << bytes.toHex().data();
        EXPECT_EQ(decoded.text, encoding == kLegacy ? fromWindows1252(bytes) : "plaç");
    }
}

TEST(FileText, EveryTextReadsBackAsWritten) {
    for (const QString& text : {QStringLiteral("Ã§"), QStringLiteral("plaç"), QStringLiteral("Â¶x"),
                                QStringLiteral("abc"), QStringLiteral("€ ŀ")})
        EXPECT_EQ(decodeFileText(encodeFileText(text)).text, text) << text;
}

} // namespace
} // namespace mervak
