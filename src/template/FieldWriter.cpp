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
    m_text.append(value < 0 ? u'-' : u' ');
    while (count > 0)
        m_text.append(QChar(digits[--count]));
    m_text.append(u' ');
    endLine();
}

void FieldWriter::writeQuoted(const QString& value) {
    m_text.append(u'"');
    if (value.contains(u'"'))
        m_text.append(QString(value).replace(u'"', QChar(kPilcrow)));
    else
        m_text.append(value);
    m_text.append(u'"');
    endLine();
}

void FieldWriter::writeBare(const QString& value) {
    m_text.append(value);
    endLine();
}

QByteArray FieldWriter::bytes() const {
    return encodeFileText(m_text);
}

void FieldWriter::endLine() {
    m_text.append(QLatin1String("\r\n"));
}

} // namespace mervak
