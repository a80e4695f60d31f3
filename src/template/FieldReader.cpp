#include "template/FieldReader.h"

#include "platform/Checked16.h"
#include "platform/NumericText.h"

namespace mervak {

namespace {

constexpr char16_t kPilcrow = 0x00B6;

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t';
}

bool endsNumber(QChar c) {
    return isBlank(c) || c == u',' || c == u'\r' || c == u'\n';
}

// The common case, "[+-]digits", without the general numeric parser.
bool plainInteger(QStringView token, long long& value) {
    qsizetype i = 0;
    const bool negative = token[0] == u'-';
    if (token[0] == u'-' || token[0] == u'+')
        ++i;
    if (i == token.size() || token.size() - i > 12)
        return false;
    value = 0;
    for (; i < token.size(); ++i) {
        if (token[i] < u'0' || token[i] > u'9')
            return false;
        value = value * 10 + (token[i].unicode() - u'0');
    }
    if (negative)
        value = -value;
    return true;
}

} // namespace

int16_t FieldReader::readInteger() {
    skipBlanks();
    const int line = line_;
    const qsizetype start = pos_;
    while (pos_ < text_.size() && !endsNumber(text_[pos_]))
        ++pos_;
    const QStringView token = text_.sliced(start, pos_ - start);
    if (token.isEmpty())
        fail(line);
    long long value = 0;
    int16_t result = 0;
    try {
        if (plainInteger(token, value))
            result = toInt16(value);
        else if (IsNumeric(token.toString()))
            result = roundToInt16(Val(token.toString()));
        else
            fail(line);
    } catch (const Overflow16&) {
        fail(line);
    }
    endValue();
    return result;
}

QString FieldReader::readQuoted() {
    skipBlanks();
    const int line = line_;
    if (pos_ >= text_.size() || text_[pos_] != u'"')
        fail(line);
    const qsizetype close = text_.indexOf(u'"', pos_ + 1);
    if (close < 0)
        fail(line);
    QString value = text_.sliced(pos_ + 1, close - pos_ - 1).toString();
    line_ += static_cast<int>(value.count(u'\n'));
    pos_ = close + 1;
    value.replace(QChar(kPilcrow), u'"');
    endValue();
    return value;
}

QString FieldReader::readBare() {
    skipBlanks();
    if (pos_ >= text_.size())
        fail(line_);
    const qsizetype start = pos_;
    while (pos_ < text_.size() && text_[pos_] != u',' && text_[pos_] != u'\r' &&
           text_[pos_] != u'\n')
        ++pos_;
    QStringView value = text_.sliced(start, pos_ - start);
    while (!value.isEmpty() && isBlank(value.back()))
        value.chop(1);
    skipRestOfLine();
    return value.toString();
}

bool FieldReader::atEnd() const {
    for (qsizetype i = pos_; i < text_.size(); ++i)
        if (!isBlank(text_[i]) && text_[i] != u'\r' && text_[i] != u'\n')
            return false;
    return true;
}

void FieldReader::skipBlanks() {
    while (pos_ < text_.size() && isBlank(text_[pos_]))
        ++pos_;
}

// After a value: blanks, then a comma, a line end or the end of the text.
void FieldReader::endValue() {
    skipBlanks();
    if (pos_ >= text_.size())
        return;
    if (text_[pos_] == u',') {
        ++pos_;
        return;
    }
    if (text_[pos_] != u'\r' && text_[pos_] != u'\n')
        fail(line_);
    takeLineEnd();
}

void FieldReader::skipRestOfLine() {
    while (pos_ < text_.size() && text_[pos_] != u'\r' && text_[pos_] != u'\n')
        ++pos_;
    if (pos_ < text_.size())
        takeLineEnd();
}

void FieldReader::takeLineEnd() {
    if (text_[pos_] == u'\r' && pos_ + 1 < text_.size() && text_[pos_ + 1] == u'\n')
        ++pos_;
    ++pos_;
    ++line_;
}

void FieldReader::fail(int line) const {
    throw FieldError{line};
}

} // namespace mervak
