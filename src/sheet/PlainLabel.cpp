#include "sheet/PlainLabel.h"

#include <QStringList>

namespace mervak {

namespace {

// The index just past the brace that closes the one at `open`, counting nested
// braces; -1 when it never closes.
qsizetype pastClosingBrace(const QString& text, qsizetype open) {
    int depth = 0;
    for (qsizetype i = open; i < text.size(); ++i) {
        if (text[i] == u'{')
            ++depth;
        else if (text[i] == u'}' && --depth == 0)
            return i + 1;
    }
    return -1;
}

bool isSpeechKeyword(const QString& keyword) {
    const QString upper = keyword.toUpper();
    return upper == QLatin1String("LLEGIR") || upper == QLatin1String("LEER");
}

// "{x}", "{+}", "{a 3}": the character (repeated); named keys give nothing.
QString bracedKey(QStringView inside) {
    const QStringList parts = inside.toString().split(u' ', Qt::SkipEmptyParts);
    if (inside.size() == 1)
        return inside.toString();
    if (parts.size() == 2 && parts[0].size() == 1) {
        bool ok = false;
        const int count = parts[1].toInt(&ok);
        if (ok && count > 0 && count <= 50)
            return parts[0].repeated(count);
    }
    return {};
}

struct Reading {
    QString typed;
    QString spoken;
};

// A modifier applies to the next key or parenthesised group, which then types
// no plain character: skip it.
qsizetype pastChord(const QString& text, qsizetype i) {
    while (i < text.size() && (text[i] == u'+' || text[i] == u'^' || text[i] == u'%'))
        ++i;
    if (i >= text.size())
        return i;
    if (text[i] == u'(') {
        const qsizetype close = text.indexOf(u')', i);
        return close < 0 ? text.size() : close + 1;
    }
    if (text[i] == u'{') {
        const qsizetype end = pastClosingBrace(text, i);
        return end < 0 ? text.size() : end;
    }
    return i + 1;
}

void readBlock(const QString& text, qsizetype open, qsizetype end, Reading& reading) {
    const QString inside = text.mid(open + 2, end - open - 3);
    const qsizetype blank = inside.indexOf(u' ');
    if (blank <= 0 || !isSpeechKeyword(inside.left(blank)))
        return;
    const QString words = inside.mid(blank + 1);
    if (!words.contains(u'{'))
        reading.spoken += u' ' + words;
}

Reading read(const QString& text) {
    Reading reading;
    for (qsizetype i = 0; i < text.size();) {
        const QChar c = text[i];
        if (c == u'{') {
            const qsizetype end = pastClosingBrace(text, i);
            if (end < 0)
                break; // an unclosed brace: what follows is no plain text
            if (text.mid(i, 2) == QLatin1String("{|"))
                readBlock(text, i, end, reading);
            else if (end - i >= 3)
                reading.typed += bracedKey(QStringView(text).mid(i + 1, end - i - 2));
            i = end;
        } else if (c == u'+' || c == u'^' || c == u'%') {
            i = pastChord(text, i);
        } else {
            if (c == u'~')
                reading.typed += u' ';
            else if (c != u'(' && c != u')')
                reading.typed += c;
            ++i;
        }
    }
    return reading;
}

} // namespace

QString plainLabel(const QString& actionText) {
    const Reading reading = read(actionText);
    const QString typed = reading.typed.simplified();
    return typed.isEmpty() ? reading.spoken.simplified() : typed;
}

} // namespace mervak
