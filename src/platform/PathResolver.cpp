#include "platform/PathResolver.h"

#include <QDir>
#include <QFileInfo>

namespace mervak {

namespace {

bool hasDriveLetter(const QString& path) {
    return path.size() >= 2 && path[1] == u':' && path[0].isLetter();
}

QString matchingEntry(const QDir& folder, const QString& name) {
    if (QFileInfo::exists(folder.filePath(name)))
        return name;
    const auto entries =
        folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries)
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    return {};
}

QString underBase(const QString& relative, const QString& baseFolder) {
    return QDir::cleanPath(QDir(baseFolder).filePath(relative));
}

} // namespace

QString toLocalPath(const QString& stored) {
    QString path = stored.trimmed();
    path.replace(u'\\', u'/');
    if (hasDriveLetter(path))
        path = path.mid(2);
    return path;
}

bool isAbsoluteStoredPath(const QString& stored) {
    const QString trimmed = stored.trimmed();
    return hasDriveLetter(trimmed) || trimmed.startsWith(u'\\') || trimmed.startsWith(u'/');
}

QString findCaseInsensitive(const QString& localPath) {
    if (localPath.isEmpty())
        return {};
    const QString clean = QDir::cleanPath(QDir(localPath).absolutePath());
    if (QFileInfo::exists(clean))
        return clean;
    const QStringList parts = clean.split(u'/', Qt::SkipEmptyParts);
    QString found = QStringLiteral("/");
    for (const QString& part : parts) {
        const QString entry = matchingEntry(QDir(found), part);
        if (entry.isEmpty())
            return {};
        found = QDir(found).filePath(entry);
    }
    return found;
}

QString resolveStoredPath(const QString& stored, const QString& baseFolder) {
    const QString local = toLocalPath(stored);
    if (local.isEmpty())
        return {};
    const QString direct =
        isAbsoluteStoredPath(stored) ? QDir::cleanPath(local) : underBase(local, baseFolder);
    if (const QString found = findCaseInsensitive(direct); !found.isEmpty())
        return found;
    QStringList tail = local.split(u'/', Qt::SkipEmptyParts);
    while (!tail.isEmpty()) {
        if (const QString found = findCaseInsensitive(underBase(tail.join(u'/'), baseFolder));
            !found.isEmpty())
            return found;
        tail.removeFirst();
    }
    return direct;
}

} // namespace mervak
