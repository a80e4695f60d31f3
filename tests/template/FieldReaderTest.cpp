#include "template/FieldReader.h"

#include "template/FieldWriter.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

enum class Kind { Integer, Quoted, Bare };

struct ReadCase {
    const char* name;
    const char* text;
    QList<Kind> kinds;
    QStringList values; // what each read gives, the integers as decimal text
    int failLine;       // 0: every read succeeds
};

QString readOne(FieldReader& in, Kind kind) {
    switch (kind) {
    case Kind::Integer:
        return QString::number(in.readInteger());
    case Kind::Quoted:
        return in.readQuoted();
    case Kind::Bare:
        return in.readBare();
    }
    return {};
}

TEST(FieldReader, ReadsValuesAndSaysWhereTheyFail) {
    using enum Kind;
    const ReadCase cases[] = {
        {"printed numbers", " 5 \r\n-12 \r\n", {Integer, Integer}, {"5", "-12"}, 0},
        {"limits", " 32767 \r\n-32768 \r\n", {Integer, Integer}, {"32767", "-32768"}, 0},
        {"comma between numbers", "1,2\r\n", {Integer, Integer}, {"1", "2"}, 0},
        {"LF and CR line ends", "1\n2\r3", {Integer, Integer, Integer}, {"1", "2", "3"}, 0},
        {"hexadecimal", "&HFFFF\r\n", {Integer}, {"-1"}, 0},
        {"fraction rounds half to even", "2.5\r\n", {Integer}, {"2"}, 0},
        {"quoted with pilcrow",
         "\"a\xc2\xb6"
         "b\"\r\n",
         {Quoted},
         {"a\"b"},
         0},
        {"quoted holds commas", "\"a, b\"\r\n 1 \r\n", {Quoted, Integer}, {"a, b", "1"}, 0},
        {"quoted spans lines", "\"a\r\nb\"\r\n 1 \r\n", {Quoted, Integer}, {"a\r\nb", "1"}, 0},
        {"bare empty line", "\r\n 3 \r\n", {Bare, Integer}, {"", "3"}, 0},
        {"bare cut at comma", "C:\\a,b.bmp\r\n 3 \r\n", {Bare, Integer}, {"C:\\a", "3"}, 0},
        {"bare trailing blanks", "a.bmp  \r\n", {Bare}, {"a.bmp"}, 0},
        {"bare keeps quotes", "\"a\r\nb\"\r\n", {Bare, Bare}, {"\"a", "b\""}, 0},
        {"text for number", "abc\r\n", {Integer}, {}, 1},
        {"quoted for number", " 1 \r\n\"5\"\r\n", {Integer, Integer}, {}, 2},
        {"number for text", " 1 \r\n 5 \r\n", {Integer, Quoted}, {}, 2},
        {"empty line for number", "\r\n", {Integer}, {}, 1},
        {"nothing left", " 1 \r\n", {Integer, Integer}, {}, 2},
        {"overflow", " 1 \r\n 32768 \r\n", {Integer, Integer}, {}, 2},
        {"negative overflow", "-32769", {Integer}, {}, 1},
        {"huge number", "99999999999999999999", {Integer}, {}, 1},
        {"unterminated quote", " 1 \r\n\"abc\r\n", {Integer, Quoted}, {}, 2},
        {"garbage after quote", "\"a\"b\r\n", {Quoted}, {}, 1},
        {"garbage after number", "12x\r\n", {Integer}, {}, 1},
        {"bare at end of file", "", {Bare}, {}, 1},
        {"line after quoted lines", "\"a\nb\nc\"\r\nx", {Quoted, Integer}, {}, 4},
    };
    for (const auto& c : cases) {
        const QString text = QString::fromUtf8(c.text);
        FieldReader in(text);
        QStringList values;
        int failedAt = 0;
        try {
            for (Kind kind : c.kinds)
                values.append(readOne(in, kind));
        } catch (const FieldError& e) {
            failedAt = e.line;
        }
        EXPECT_EQ(failedAt, c.failLine) << c.name;
        if (c.failLine == 0) {
            EXPECT_EQ(values, c.values) << c.name;
        }
    }
}

TEST(FieldReader, AtEndIgnoresTrailingBlankLines) {
    FieldReader in(u" 1 \r\n \r\n\r\n");
    EXPECT_FALSE(in.atEnd());
    in.readInteger();
    EXPECT_TRUE(in.atEnd());
}

TEST(FieldWriter, WritesTheClassicPrintedFormsInTheLegacyCodePage) {
    FieldWriter out;
    out.writeInteger(0);
    out.writeInteger(-1);
    out.writeInteger(32767);
    out.writeInteger(-32768);
    out.writeQuoted(QStringLiteral("di \"hola\" ¶"));
    out.writeBare(QStringLiteral("C:\\x,y.bmp"));
    EXPECT_EQ(out.bytes(),
              QByteArray(" 0 \r\n-1 \r\n 32767 \r\n-32768 \r\n\"di \xb6hola\xb6 \xb6\"\r\n"
                         "C:\\x,y.bmp\r\n"));
}

} // namespace
} // namespace mervak
