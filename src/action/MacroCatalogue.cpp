#include "action/MacroCatalogue.h"

#include "platform/PathResolver.h"
#include "platform/PrivateProfile.h"
#include "platform/TextEncoding.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace mervak {

namespace {

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
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return parse(decodeFileText(file.readAll()).text);
}

// The first of two entries with one name in one group wins.
MacroCatalogue MacroCatalogue::parse(const QString& text) {
    MacroCatalogue catalogue;
    for (const PrivateProfile::Section& section : PrivateProfile::sections(text)) {
        QString word;
        QString group;
        if (!sectionKind(section.name, &word, &group))
            continue;
        QList<CatalogueEntry>& entries =
            word == u"MACROS" ? catalogue.macros_ : catalogue.programs_;
        for (const auto& [name, value] : section.entries)
            if (!name.isEmpty() && !value.isEmpty() && !containsName(entries, group, name))
                entries.append({group, name, value});
    }
    return catalogue;
}

QString MacroCatalogue::locate(const QString& homeFolder, const QString& dataFolder) {
    for (const QString& folder : {homeFolder, dataFolder}) {
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
