#include "platform/NumericText.h"

#include <QRegularExpression>
#include <cmath>
#include <cstdlib>

namespace mervak {

namespace {

QString withoutBlanks(const QString& text) {
    QString compact;
    compact.reserve(text.size());
    for (QChar c : text)
        if (c != u' ' && c != u'\t' && c != u'\n')
            compact.append(c);
    return compact;
}

int digitValue(QChar c, int radix) {
    int value = -1;
    if (c >= u'0' && c <= u'9')
        value = c.unicode() - u'0';
    else if (c.toUpper() >= u'A' && c.toUpper() <= u'F')
        value = c.toUpper().unicode() - u'A' + 10;
    return value < radix ? value : -1;
}

// "&H1F", "&O17", "&17": the digits after the prefix, read as a signed word.
double radixValue(const QString& text) {
    int radix = 8;
    qsizetype pos = 1;
    if (pos < text.size() && text[pos].toUpper() == u'H') {
        radix = 16;
        ++pos;
    } else if (pos < text.size() && text[pos].toUpper() == u'O') {
        ++pos;
    }
    unsigned long long value = 0;
    for (; pos < text.size(); ++pos) {
        const int digit = digitValue(text[pos], radix);
        if (digit < 0 || value > 0xFFFFFFFFull)
            break;
        value = value * radix + digit;
    }
    if (value <= 0xFFFF)
        return static_cast<int16_t>(value);
    if (value <= 0xFFFFFFFF)
        return static_cast<int32_t>(value);
    return static_cast<double>(value);
}

// The longest prefix shaped like [+-]digits[.digits][(E|D)[+-]digits].
QString decimalPrefix(const QString& text) {
    static const QRegularExpression number(
        QStringLiteral("^[+-]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eEdD][+-]?\\d+)?"));
    const auto match = number.match(text);
    return match.hasMatch() ? match.captured(0) : QString();
}

} // namespace

double Val(const QString& text) {
    const QString compact = withoutBlanks(text);
    if (compact.startsWith(u'&'))
        return radixValue(compact);
    QString prefix = decimalPrefix(compact);
    if (prefix.isEmpty())
        return 0.0;
    prefix.replace(u'd', u'e').replace(u'D', u'e');
    return std::strtod(prefix.toLatin1().constData(), nullptr);
}

bool IsNumeric(const QString& text) {
    static const QRegularExpression whole(QStringLiteral(
        "^(?:[+-]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eEdD][+-]?\\d+)?|&[hH][0-9a-fA-F]+|&[oO]?[0-7]+)$"));
    return whole.match(text.trimmed()).hasMatch();
}

QString numberToText(double value) {
    if (std::trunc(value) == value && std::fabs(value) < 1e15)
        return QString::number(static_cast<long long>(value));
    QString text = QString::number(value, 'g', 15).toUpper();
    return text;
}

} // namespace mervak
