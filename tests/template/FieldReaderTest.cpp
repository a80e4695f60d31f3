#include "template/FieldReader.h"

#include "template/FieldWriter.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

// Reads one value per letter of `reads` (i: integer, q: quoted, b: bare) and says
// what they gave, joined by "|", or "@" and the line where reading failed.
QString readValues(const QString& text, const char* reads) {
    FieldReader in(text);
    QStringList values;
    try {
        for (const char* kind = reads; *kind; ++kind) {
            if (*kind == 'i')
                values.append(QString::number(in.readInteger()));
            else
                values.append(*kind == 'q' ? in.readQuoted() : in.readBare());
        }
    } catch (const FieldError& e) {
        return QStringLiteral("@") + QString::number(e.line);
    }
    return values.join(u'|');
}

TEST(FieldReader, ReadsValuesAndSaysWhereTheyFail) {
    const struct {
        const char* text;
        const char* reads;
        const char* outcome;
    } cases[] = {
        {" 5 \r\n-12 \r\n", "ii", "5|-12"},
        {" 32767 \r\n-32768 \r\n", "ii", "32767|-32768"},
        {"1,2\r\n", "ii", "1|2"},
        {"1\n2\r3", "iii", "1|2|3"},
        {"&HFFFF\r\n", "i", "-1"},
        {"2.5\r\n", "i", "2"}, // half to even
        {"\"a¶b\"\r\n", "q", "a\"b"},
        {"\"a, b\"\r\n 1 \r\n", "qi", "a, b|1"},
        {"\"a\r\nb\"\r\n 1 \r\n", "qi", "a\r\nb|1"},
        {"\r\n 3 \r\n", "bi", "|3"},
        {"C:\\a,b.bmp\r\n 3 \r\n", "bi", "C:\\a|3"},
        {"a.bmp  \r\n", "b", "a.bmp"},
        {"\"a\r\nb\"\r\n", "bb", "\"a|b\""},
        {"abc\r\n", "i", "@1"},
        {" 1 \r\n\"5\"\r\n", "ii", "@2"},
        {" 1 \r\n 5 \r\n", "iq", "@2"},
        {"\r\n", "i", "@1"},
        {" 1 \r\n", "ii", "@2"},
        {" 1 \r\n 32768 \r\n", "ii", "@2"},
        {"-32769", "i", "@1"},
        {"99999999999999999999", "i", "@1"},
        {" 1 \r\n\"abc\r\n", "iq", "@2"},
        {"\"a\"b\r\n", "q", "@1"},
        {"12x\r\n", "i", "@1"},
        {"", "b", "@1"},
        {"\"a\nb\nc\"\r\nx", "qi", "@4"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(readValues(QString::fromUtf8(c.text), c.reads), QString::fromUtf8(c.outcome))
            << c.text;
}

TEST(FieldWriter, WritesTheClassicPrintedFormsInTheLegacyCodePage) {
    FieldWriter out;
    for (int16_t value : {0, -1, 32767, -32768})
        out.writeInteger(value);
    out.writeQuoted(QStringLiteral("di \"hola\" ¶"));
    out.writeBare(QStringLiteral("C:\\x,y.bmp"));
    EXPECT_EQ(out.bytes(),
              QByteArray(" 0 \r\n-1 \r\n 32767 \r\n-32768 \r\n\"di \xb6hola\xb6 \xb6\"\r\n"
                         "C:\\x,y.bmp\r\n"));
}

} // namespace
} // namespace mervak
