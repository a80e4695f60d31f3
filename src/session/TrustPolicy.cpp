#include "session/TrustPolicy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace mervak {

QString resolvedPath(const QString& path) {
    QString existing = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    QString rest;
    while (!QFileInfo::exists(existing) && existing != u"/" && !existing.isEmpty()) {
        const QFileInfo info(existing);
        rest = rest.isEmpty() ? info.fileName() : info.fileName() + u'/' + rest;
        existing = info.path();
    }
    const QString canonical = QFileInfo(existing).canonicalFilePath();
    if (rest.isEmpty())
        return canonical;
    return QDir::cleanPath(canonical + u'/' + rest);
}

bool liesIn(const QString& path, const QString& folder) {
    if (folder.isEmpty() || !QFileInfo(folder).isDir())
        return false;
    QString base = resolvedPath(folder);
    if (!base.endsWith(u'/'))
        base += u'/';
    return resolvedPath(path).startsWith(base);
}

void TrustPolicy::configure(const QString& systemDataFolder, const QStringList& trustedFolders,
                            TrustStore store) {
    systemData_ = systemDataFolder;
    trustedFolders_ = trustedFolders;
    store_ = std::move(store);
}

TrustPolicy::Standing TrustPolicy::standingOf(const QString& file,
                                              const QByteArray& content) const {
    if (liesIn(file, systemData_))
        return Standing::SystemData;
    for (const QString& folder : trustedFolders_)
        if (liesIn(file, folder))
            return Standing::TrustedFolder;
    const QByteArray hash = TrustStore::hashOf(content);
    if (const auto found = answersThisRun_.constFind(hash); found != answersThisRun_.cend())
        return *found ? Standing::Allowed : Standing::Denied;
    switch (store_.answer(hash)) {
    case TrustStore::Answer::Allow:
        return Standing::Allowed;
    case TrustStore::Answer::Deny:
        return Standing::Denied;
    case TrustStore::Answer::None:
        break;
    }
    return Standing::Unknown;
}

QByteArray TrustPolicy::hashOfFile(const QString& file) const {
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? TrustStore::hashOf(in.readAll()) : QByteArray();
}

TrustPolicy::Standing TrustPolicy::opened(const QString& file) {
    QFile in(file);
    const QByteArray content = in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    file_ = file;
    folder_ = QFileInfo(file).absolutePath();
    hash_ = TrustStore::hashOf(content);
    standing_ = standingOf(file, content);
    return standing_;
}

void TrustPolicy::untitled() {
    file_.clear();
    folder_.clear();
    hash_.clear();
    standing_ = Standing::Own;
}

bool TrustPolicy::saved(const QString& file, QString* error) {
    file_ = file;
    folder_ = QFileInfo(file).absolutePath();
    hash_ = hashOfFile(file);
    standing_ = Standing::Own;
    answersThisRun_.insert(hash_, true);
    return store_.remember(hash_, TrustStore::Answer::Allow, error);
}

bool TrustPolicy::answer(bool allow, bool remember, QString* error) {
    standing_ = allow ? Standing::Allowed : Standing::Denied;
    if (hash_.isEmpty())
        return true;
    answersThisRun_.insert(hash_, allow);
    if (!remember)
        return true;
    return store_.remember(hash_, allow ? TrustStore::Answer::Allow : TrustStore::Answer::Deny,
                           error);
}

bool TrustPolicy::isGuarded(const GuardedCommand& command, const QString& templateFolder) const {
    if (!command.namesFile())
        return true;
    return !liesIn(command.target, templateFolder) && !liesIn(command.target, systemData_);
}

bool TrustPolicy::permits(const GuardedCommand& command) const {
    return isTrusted(standing_) || !isGuarded(command, folder_);
}

} // namespace mervak
