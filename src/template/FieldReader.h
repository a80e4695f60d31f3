#pragma once

#include <QString>
#include <QStringView>
#include <cstdint>

namespace mervak {

// Thrown by FieldReader at the first value that is missing or malformed; `line`
// is the 1-based line where that value starts.
struct FieldError {
    int line;
};

// Reads the values of a Template text file one by one. Values end at a comma or
// a line end (CR LF, LF or CR); blanks around them are skipped. Every read throws
// FieldError when the value is not there or has the wrong kind, and Overflow16
// when a number does not fit in 16 bits.
class FieldReader {
public:
    explicit FieldReader(QStringView text) : text_(text) {}

    // A number in the classic numeric forms ("5", " -12 ", "&HFF"), rounded to 16 bits.
    int16_t readInteger();

    // A text between double quotes; character 182 comes back as a double quote.
    QString readQuoted();

    // A text taken as it stands, up to the first comma (the rest of that line is
    // dropped) or the line end, so it never holds a comma or a line end.
    QString readBare();

    // True when only blanks and line ends remain.
    bool atEnd() const;

    int line() const { return line_; }

private:
    void skipBlanks();
    void endValue();
    void skipRestOfLine();
    void takeLineEnd();
    [[noreturn]] void fail(int line) const;

    QStringView text_;
    qsizetype pos_ = 0;
    int line_ = 1;
};

} // namespace mervak
