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

// Each "{|KEYWORD argument}" block whose argument holds no inner block: the
// keyword in upper case and the argument without its surrounding blanks.
QList<FileReference> blockArguments(const QString& actionText) {
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
        const QString argument = actionText.mid(start, end - start);
        if (argument.isEmpty() || argument.contains(u'{') || argument.contains(u'|'))
            continue;
        found.append(
            {actionText.mid(bodyStart, blank - bodyStart).toUpper(), start, end - start, argument});
    }
    return found;
}

// The program word of a command line: up to the first blank, or between quotes.
FileReference programWord(const FileReference& commandLine) {
    const QString& line = commandLine.name;
    if (line.startsWith(u'"')) {
        const qsizetype quote = line.indexOf(u'"', 1);
        const qsizetype length = quote < 0 ? line.size() - 1 : quote - 1;
        return {commandLine.keyword, commandLine.start + 1, length, line.mid(1, length)};
    }
    qsizetype length = 0;
    while (length < line.size() && !isBlank(line[length]))
        ++length;
    return {commandLine.keyword, commandLine.start, length, line.left(length)};
}

} // namespace

QList<FileReference> fileReferences(const QString& actionText) {
    QList<FileReference> found = blockArguments(actionText);
    found.removeIf([](const FileReference& reference) { return !namesFile(reference.keyword); });
    return found;
}

QList<FileReference> programReferences(const QString& actionText) {
    QList<FileReference> found;
    for (const FileReference& block : blockArguments(actionText)) {
        if (block.keyword != QLatin1String("EXECUTA"))
            continue;
        if (const FileReference program = programWord(block); !program.name.isEmpty())
            found.append(program);
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
