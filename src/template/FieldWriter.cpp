#include "template/FieldWriter.h"

#include "platform/TextEncoding.h"

#include <array>

namespace mervak {

namespace {
constexpr char16_t kPilcrow = 0x00B6;
}

void FieldWriter::writeInteger(int16_t value) {
    std::array<char16_t, 8> digits{};
    int count = 0;
    int magnitude = value < 0 ? -static_cast<int>(value) : value;
    do {
        digits[count++] = static_cast<char16_t>(u'0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude > 0);
    text_.append(value < 0 ? u'-' : u' ');
    while (count > 0)
        text_.append(QChar(digits[--count]));
    text_.append(u' ');
    endLine();
}

void FieldWriter::writeQuoted(const QString& value) {
    text_.append(u'"');
    if (value.contains(u'"'))
        text_.append(QString(value).replace(u'"', QChar(kPilcrow)));
    else
        text_.append(value);
    text_.append(u'"');
    endLine();
}

void FieldWriter::writeBare(const QString& value) {
    text_.append(value);
    endLine();
}

QByteArray FieldWriter::bytes() const {
    return encodeFileText(text_);
}

void FieldWriter::endLine() {
    text_.append(QLatin1String("\r\n"));
}

} // namespace mervak
