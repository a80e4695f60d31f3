#include "action/MacroCatalogue.h"

#include "platform/PathResolver.h"
#include "platform/TextEncoding.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace mervak {

namespace {

QString unquoted(QString value) {
    value = value.trimmed();
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') &&
        value.back() == value.front())
        value = value.mid(1, value.size() - 2);
    return value;
}

// "Programes", "Programas" (as a Spanish-speaking teacher may write it) or
// "Macros", alone or followed by ": Group".
bool sectionKind(const QString& header, QString* word, QString* group) {
    const qsizetype colon = header.indexOf(u':');
    *word = (colon < 0 ? header : header.left(colon)).trimmed().toUpper();
    *group = colon < 0 ? QString() : header.mid(colon + 1).trimmed();
    return *word == u"PROGRAMES" || *word == u"PROGRAMAS" || *word == u"MACROS";
}

bool containsName(const QList<CatalogueEntry>& entries, const QString& group, const QString& name) {
    for (const CatalogueEntry& entry : entries)
        if (entry.group.compare(group, Qt::CaseInsensitive) == 0 &&
            entry.name.compare(name, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

} // namespace

MacroCatalogue MacroCatalogue::read(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        MacroCatalogue empty;
        empty.problems_.append({0, QStringLiteral("cannot read \"%1\": %2")
                                       .arg(QDir::toNativeSeparators(path), file.errorString())});
        return empty;
    }
    return parse(decodeFileText(file.readAll()).text);
}

MacroCatalogue MacroCatalogue::parse(const QString& text) {
    MacroCatalogue catalogue;
    QString normalised = text;
    normalised.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    const QStringList lines = normalised.split(u'\n');
    Kind kind = Kind::None;
    QString group;
    for (qsizetype i = 0; i < lines.size(); ++i)
        catalogue.parseLine(lines[i], static_cast<int>(i + 1), &kind, &group);
    return catalogue;
}

void MacroCatalogue::parseLine(const QString& line, int number, Kind* kind, QString* group) {
    const QString trimmed = line.trimmed();
    if (trimmed.isEmpty() || trimmed.startsWith(u';'))
        return;
    if (!trimmed.startsWith(u'[')) {
        addEntry(*kind, *group, trimmed, number);
        return;
    }
    // A broken or unknown header still ends the previous section, so its lines
    // are not taken for entries of the section before it; they are skipped
    // quietly, the header having been reported.
    *kind = Kind::Skipped;
    const qsizetype close = trimmed.indexOf(u']');
    if (close < 0) {
        problems_.append({number, QStringLiteral("a section header without \"]\"")});
        return;
    }
    QString word;
    if (!sectionKind(trimmed.mid(1, close - 1), &word, group)) {
        problems_.append({number, QStringLiteral("an unknown section \"%1\"; its lines are skipped")
                                      .arg(trimmed.left(close + 1))});
        return;
    }
    *kind = word == u"MACROS" ? Kind::Macros : Kind::Programs;
}

void MacroCatalogue::addEntry(Kind kind, const QString& group, const QString& line, int number) {
    if (kind == Kind::Skipped)
        return;
    if (kind == Kind::None) {
        problems_.append({number, QStringLiteral("a line before any section")});
        return;
    }
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0) {
        problems_.append({number, QStringLiteral("a line without \"=\"")});
        return;
    }
    const QString name = line.left(equals).trimmed();
    const QString value = unquoted(line.mid(equals + 1));
    QList<CatalogueEntry>& entries = kind == Kind::Programs ? programs_ : macros_;
    if (name.isEmpty())
        problems_.append({number, QStringLiteral("no name before \"=\"")});
    else if (value.isEmpty())
        problems_.append({number, QStringLiteral("\"%1\" has nothing after \"=\"").arg(name)});
    else if (containsName(entries, group, name))
        problems_.append(
            {number, QStringLiteral("\"%1\" is named twice; the first one is kept").arg(name)});
    else
        entries.append({group, name, value});
}

QString MacroCatalogue::locate(const QString& homeFolder, const QString& programFolder) {
    for (const QString& folder : {homeFolder, programFolder}) {
        if (folder.isEmpty())
            continue;
        const QString found = findCaseInsensitive(QDir(folder).filePath(kFileName));
        if (!found.isEmpty() && QFileInfo(found).isFile())
            return found;
    }
    return {};
}

QString MacroCatalogue::executeBlock(const QString& commandLine) {
    return QStringLiteral("{|Executa ") + commandLine.trimmed() + u'}';
}

} // namespace mervak
