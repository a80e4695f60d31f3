#include "platform/TextEncoding.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

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
