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

struct DecodeCase {
    const char* name;
    QByteArray bytes;
    FileEncoding encoding;
    QString text;
};

TEST(FileText, ReadsUtf8OnlyWhenItHoldsMultiByteSequences) {
    const DecodeCase cases[] = {
        {"plain ASCII", "abc", FileEncoding::Windows1252, QStringLiteral("abc")},
        {"UTF-8 accents", "pla\xc3\xa7", FileEncoding::Utf8, QStringLiteral("plaç")},
        {"legacy accents", "pla\xe7", FileEncoding::Windows1252, QStringLiteral("plaç")},
        {"truncated sequence", "a\xc3", FileEncoding::Windows1252, QStringLiteral("aÃ")},
        {"overlong form", "\xc0\xaf", FileEncoding::Windows1252, QStringLiteral("À¯")},
        {"surrogate half", "\xed\xa0\x80", FileEncoding::Windows1252,
         fromWindows1252("\xed\xa0\x80")},
    };
    for (const auto& c : cases) {
        const auto decoded = decodeFileText(c.bytes);
        EXPECT_EQ(decoded.encoding, c.encoding) << c.name;
        EXPECT_EQ(decoded.text, c.text) << c.name;
    }
}

TEST(FileText, WritesWindows1252WhenEveryCharacterFits) {
    EXPECT_EQ(encodeFileText(QStringLiteral("plaç¶")), QByteArray("pla\xe7\xb6"));
    EXPECT_EQ(encodeFileText(QStringLiteral("ŀ Ω")), QStringLiteral("ŀ Ω").toUtf8());
    EXPECT_EQ(encodeFileText(QStringLiteral("ç"), FileEncoding::Utf8), QByteArray("\xc3\xa7"));
}

TEST(FileText, EveryTextReadsBackAsWritten) {
    for (const QString& text : {QStringLiteral("Ã§"), QStringLiteral("plaç"), QStringLiteral("Â¶x"),
                                QStringLiteral("abc"), QStringLiteral("€ ŀ")})
        EXPECT_EQ(decodeFileText(encodeFileText(text)).text, text) << text;
}

} // namespace
} // namespace mervak
