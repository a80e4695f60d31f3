#include "openboard/ActionMapping.h"

#include <QStringView>

namespace mervak {

namespace {

const QString kSpecialKeys = QStringLiteral("+^%~(){}[]");

// The index of the "}" that closes the "{" at `open`, counting nested braces;
// the text's end when it is never closed.
qsizetype blockEnd(const QString& text, qsizetype open) {
    int depth = 0;
    for (qsizetype i = open; i < text.size(); ++i) {
        if (text[i] == u'{')
            ++depth;
        else if (text[i] == u'}' && --depth == 0)
            return i;
    }
    return text.size();
}

// The plain characters of a key run: braced single characters count, braced
// key names and "~" do not, and a modifier takes the key after it along.
QString plainKeys(const QString& run) {
    QString plain;
    for (qsizetype i = 0; i < run.size(); ++i) {
        const QChar c = run[i];
        if (c == u'{') {
            const qsizetype close = run.indexOf(u'}', i + 2);
            if (close < 0)
                break;
            if (close == i + 2)
                plain += run[i + 1];
            i = close;
        } else if (c == u'+' || c == u'^' || c == u'%') {
            // The modified key is a shortcut, not text.
            if (i + 1 < run.size() && run[i + 1] == u'{')
                i = run.indexOf(u'}', i + 2) < 0 ? run.size() : run.indexOf(u'}', i + 2);
            else
                ++i;
        } else if (c != u'~' && c != u'(' && c != u')') {
            plain += c;
        }
    }
    return plain;
}

// Braces and "|" would end or open a block inside a Llegir argument.
QString blockArgument(QString text) {
    for (const QChar c : {u'{', u'}', u'|'})
        text.replace(c, u' ');
    return text.simplified();
}

} // namespace

QString escapedKeys(const QString& text) {
    QString keys;
    for (const QChar c : text) {
        if (kSpecialKeys.contains(c))
            keys += u'{' + QString(c) + u'}';
        else
            keys += c;
    }
    return keys;
}

QString actionTextOf(const ButtonAction& action) {
    QString text = escapedKeys(action.typed);
    if (const QString spoken = blockArgument(action.spoken); !spoken.isEmpty())
        text += QStringLiteral("{|Llegir ") + spoken + u'}';
    if (action.page)
        text += QStringLiteral("{|Pagina %1}").arg(*action.page);
    return text;
}

ButtonAction buttonActionOf(const QString& actionText) {
    ButtonAction action;
    QStringList spoken;
    qsizetype runStart = 0;
    for (qsizetype i = 0; i < actionText.size(); ++i) {
        if (!QStringView(actionText).mid(i).startsWith(u"{|"))
            continue;
        action.typed += plainKeys(actionText.mid(runStart, i - runStart));
        const qsizetype end = blockEnd(actionText, i);
        const QString body = actionText.mid(i + 2, end - i - 2).trimmed();
        const qsizetype blank = body.indexOf(u' ');
        const QString keyword = (blank < 0 ? body : body.left(blank)).toUpper();
        const QString argument = blank < 0 ? QString() : body.mid(blank + 1).trimmed();
        if (keyword == QLatin1String("LLEGIR") || keyword == QLatin1String("LEER"))
            spoken.append(argument);
        bool isNumber = false;
        const int page = argument.toInt(&isNumber);
        if (keyword == QLatin1String("PAGINA") && isNumber && !action.page)
            action.page = page;
        i = end;
        runStart = end + 1;
    }
    if (runStart < actionText.size())
        action.typed += plainKeys(actionText.mid(runStart));
    action.typed = action.typed.trimmed();
    action.spoken = spoken.join(u' ');
    return action;
}

} // namespace mervak
