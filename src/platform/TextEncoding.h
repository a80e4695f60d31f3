#pragma once

#include <QByteArray>
#include <QString>

namespace mervak {

// Windows-1252, the code page of the legacy files. The five bytes the code page
// leaves undefined map to the C1 controls of the same value, so every byte
// sequence survives a round trip.
QString fromWindows1252(const QByteArray& bytes);

// Characters outside the code page become "?"; check first with fitsWindows1252.
QByteArray toWindows1252(const QString& text);
bool fitsWindows1252(const QString& text);

// True when the bytes are valid UTF-8 and hold at least one multi-byte sequence:
// only then is a file read as UTF-8 rather than as Windows-1252.
bool looksLikeUtf8(const QByteArray& bytes);

enum class FileEncoding { Windows1252, Utf8 };

struct DecodedText {
    QString text;
    FileEncoding encoding;
};

DecodedText decodeFileText(const QByteArray& bytes);

// Windows-1252 when every character fits and the bytes cannot be mistaken for
// UTF-8 on reading, else UTF-8.
QByteArray encodeFileText(const QString& text);
QByteArray encodeFileText(const QString& text, FileEncoding preferred);

} // namespace mervak
