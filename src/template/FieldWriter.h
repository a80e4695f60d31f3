#pragma once

#include <QString>
#include <cstdint>

namespace mervak {

// Builds the text of a Template file, one value per line, each line ended by CR LF.
class FieldWriter {
public:
    explicit FieldWriter(qsizetype expectedSize = 0) { text_.reserve(expectedSize); }

    // As the number-printing statement writes it: a blank or a minus sign, the digits, a blank.
    void writeInteger(int16_t value);

    // Between double quotes, every double quote inside stored as character 182.
    void writeQuoted(const QString& value);

    // As it stands, without quotes.
    void writeBare(const QString& value);

    // The file's bytes: Windows-1252 when every character fits and those bytes
    // do not happen to read as UTF-8 (as "Ã§" would), else UTF-8; either way
    // they read back as the same text.
    QByteArray bytes() const;

private:
    void endLine();

    QString text_;
};

} // namespace mervak
