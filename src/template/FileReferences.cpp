#include "template/FileReferences.h"

#include <QStringList>

namespace mervak {

namespace {

bool namesFile(const QString& keyword) {
    static const QStringList keywords = {QStringLiteral("ENGANXA"), QStringLiteral("ENGANCHA"),
                                         QStringLiteral("SONA"), QStringLiteral("SUENA")};
    return keywords.contains(keyword);
}

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t';
}

} // namespace

QList<FileReference> fileReferences(const QString& actionText) {
    QList<FileReference> found;
    for (qsizetype open = actionText.indexOf(QStringLiteral("{|")); open >= 0;
         open = actionText.indexOf(QStringLiteral("{|"), open + 2)) {
        const qsizetype bodyStart = open + 2;
        const qsizetype close = actionText.indexOf(u'}', bodyStart);
        if (close < 0)
            break;
        const qsizetype blank = actionText.indexOf(u' ', bodyStart);
        if (blank < 0 || blank > close)
            continue;
        qsizetype start = blank;
        qsizetype end = close;
        while (start < end && isBlank(actionText[start]))
            ++start;
        while (end > start && isBlank(actionText[end - 1]))
            --end;
        const QString name = actionText.mid(start, end - start);
        const QString keyword = actionText.mid(bodyStart, blank - bodyStart).toUpper();
        if (name.isEmpty() || name.contains(u'{') || name.contains(u'|') || !namesFile(keyword))
            continue;
        found.append({keyword, start, end - start, name});
    }
    return found;
}

QString withReferenceNames(QString actionText, const QList<FileReference>& references,
                           const QStringList& names) {
    for (qsizetype i = references.size() - 1; i >= 0; --i)
        actionText.replace(references[i].start, references[i].length, names[i]);
    return actionText;
}

} // namespace mervak
