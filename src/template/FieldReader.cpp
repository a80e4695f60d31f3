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
    const int line = m_line;
    const qsizetype start = m_pos;
    while (m_pos < m_text.size() && !endsNumber(m_text[m_pos]))
        ++m_pos;
    const QStringView token = m_text.sliced(start, m_pos - start);
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
    const int line = m_line;
    if (m_pos >= m_text.size() || m_text[m_pos] != u'"')
        fail(line);
    const qsizetype close = m_text.indexOf(u'"', m_pos + 1);
    if (close < 0)
        fail(line);
    QString value = m_text.sliced(m_pos + 1, close - m_pos - 1).toString();
    m_line += static_cast<int>(value.count(u'\n'));
    m_pos = close + 1;
    value.replace(QChar(kPilcrow), u'"');
    endValue();
    return value;
}

QString FieldReader::readBare() {
    skipBlanks();
    if (m_pos >= m_text.size())
        fail(m_line);
    const qsizetype start = m_pos;
    while (m_pos < m_text.size() && m_text[m_pos] != u',' && m_text[m_pos] != u'\r' &&
           m_text[m_pos] != u'\n')
        ++m_pos;
    QStringView value = m_text.sliced(start, m_pos - start);
    while (!value.isEmpty() && isBlank(value.back()))
        value.chop(1);
    skipRestOfLine();
    return value.toString();
}

bool FieldReader::atEnd() const {
    for (qsizetype i = m_pos; i < m_text.size(); ++i)
        if (!isBlank(m_text[i]) && m_text[i] != u'\r' && m_text[i] != u'\n')
            return false;
    return true;
}

void FieldReader::skipBlanks() {
    while (m_pos < m_text.size() && isBlank(m_text[m_pos]))
        ++m_pos;
}

// After a value: blanks, then a comma, a line end or the end of the text.
void FieldReader::endValue() {
    skipBlanks();
    if (m_pos >= m_text.size())
        return;
    if (m_text[m_pos] == u',') {
        ++m_pos;
        return;
    }
    if (m_text[m_pos] != u'\r' && m_text[m_pos] != u'\n')
        fail(m_line);
    takeLineEnd();
}

void FieldReader::skipRestOfLine() {
    while (m_pos < m_text.size() && m_text[m_pos] != u'\r' && m_text[m_pos] != u'\n')
        ++m_pos;
    if (m_pos < m_text.size())
        takeLineEnd();
}

void FieldReader::takeLineEnd() {
    if (m_text[m_pos] == u'\r' && m_pos + 1 < m_text.size() && m_text[m_pos + 1] == u'\n')
        ++m_pos;
    ++m_pos;
    ++m_line;
}

void FieldReader::fail(int line) const {
    throw FieldError{line};
}

} // namespace mervak
