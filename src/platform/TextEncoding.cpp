#include "platform/TextEncoding.h"

#include <array>

namespace mervak {

namespace {

// Bytes 0x80..0x9F; everything else maps to the code point of the same value.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The byte of a character in the code page, or -1 when it has none.
int windows1252Byte(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF))
        return unit;
    for (std::size_t i = 0; i < kHighControls.size(); ++i)
        if (kHighControls[i] == unit)
            return static_cast<int>(0x80 + i);
    return -1;
}

// Length of the UTF-8 sequence led by `lead`, or 0 when it cannot lead one.
int sequenceLength(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    if (lead >= 0xF0 && lead <= 0xF4)
        return 4;
    return 0;
}

bool validContinuation(const QByteArray& bytes, qsizetype start, int length) {
    if (start + length > bytes.size())
        return false;
    const auto lead = static_cast<unsigned char>(bytes[start]);
    const auto second = static_cast<unsigned char>(bytes[start + 1]);
    // Overlong forms, surrogates and code points past U+10FFFF.
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
        (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F))
        return false;
    for (int k = 1; k < length; ++k)
        if ((static_cast<unsigned char>(bytes[start + k]) & 0xC0) != 0x80)
            return false;
    return true;
}

} // namespace

QString fromWindows1252(const QByteArray& bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        text[i] = QChar((byte >= 0x80 && byte < 0xA0) ? kHighControls[byte - 0x80] : byte);
    }
    return text;
}

QByteArray toWindows1252(const QString& text) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int byte = windows1252Byte(text[i].unicode());
        bytes[i] = byte < 0 ? '?' : static_cast<char>(byte);
    }
    return bytes;
}

bool fitsWindows1252(const QString& text) {
    for (QChar c : text)
        if (windows1252Byte(c.unicode()) < 0)
            return false;
    return true;
}

bool looksLikeUtf8(const QByteArray& bytes) {
    bool multiByte = false;
    for (qsizetype i = 0; i < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[i]);
        if (lead < 0x80) {
            ++i;
            continue;
        }
        const int length = sequenceLength(lead);
        if (length == 0 || !validContinuation(bytes, i, length))
            return false;
        multiByte = true;
        i += length;
    }
    return multiByte;
}

DecodedText decodeFileText(const QByteArray& bytes) {
    if (looksLikeUtf8(bytes))
        return {QString::fromUtf8(bytes), FileEncoding::Utf8};
    return {fromWindows1252(bytes), FileEncoding::Windows1252};
}

// Legacy bytes that happen to form UTF-8 ("Ã§") would read back as other text,
// so such a text is written as UTF-8 instead.
QByteArray encodeFileText(const QString& text) {
    if (!fitsWindows1252(text))
        return text.toUtf8();
    QByteArray legacy = toWindows1252(text);
    return looksLikeUtf8(legacy) ? text.toUtf8() : legacy;
}

QByteArray encodeFileText(const QString& text, FileEncoding preferred) {
    return preferred == FileEncoding::Utf8 ? text.toUtf8() : encodeFileText(text);
}

} // namespace mervak
