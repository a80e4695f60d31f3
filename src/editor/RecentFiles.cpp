#include "editor/RecentFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace mervak {

namespace {

const QString kSection = QStringLiteral("Recents");
constexpr int kPathBuffer = 4096;

QString keyFor(int n) {
    return QStringLiteral("Fitxer%1").arg(n);
}

} // namespace

RecentFiles::RecentFiles(PrivateProfile profile) : profile_(std::move(profile)) {}

QStringList RecentFiles::files() const {
    QStringList files;
    for (int n = 1; n <= kMaxFiles; ++n) {
        const QString path = profile_.readString(kSection, keyFor(n), {}, kPathBuffer);
        if (!path.isEmpty() && !files.contains(path))
            files.append(path);
    }
    return files;
}

bool RecentFiles::add(const QString& path, QString* error) const {
    QStringList list = files();
    list.removeAll(path);
    list.prepend(path);
    return store(list.mid(0, kMaxFiles), error);
}

bool RecentFiles::remove(const QString& path, QString* error) const {
    QStringList list = files();
    if (!list.removeAll(path))
        return true;
    return store(list, error);
}

bool RecentFiles::store(const QStringList& files, QString* error) const {
    QList<PrivateProfile::KeyValue> entries;
    for (int n = 1; n <= kMaxFiles; ++n)
        entries.append({keyFor(n), n <= files.size() ? files[n - 1] : QString()});
    return profile_.writeStrings(kSection, entries, error);
}

QStringList recentFileLabels(const QStringList& paths) {
    const auto namesake = [](const QFileInfo& a, const QFileInfo& b) {
        return a.fileName().compare(b.fileName(), Qt::CaseInsensitive) == 0;
    };
    QStringList labels;
    for (const QString& path : paths) {
        const QFileInfo file(path);
        int sameName = 0;
        int sameFolderName = 0;
        for (const QString& other : paths) {
            const QFileInfo otherFile(other);
            if (!namesake(file, otherFile))
                continue;
            ++sameName;
            if (otherFile.dir().dirName() == file.dir().dirName())
                ++sameFolderName;
        }
        QString label = file.fileName();
        if (sameName > 1)
            label +=
                QStringLiteral(" — ") +
                (sameFolderName > 1 ? QDir::toNativeSeparators(file.path()) : file.dir().dirName());
        labels.append(label);
    }
    return labels;
}

QString startFolder(const Session& session, const QStringList& recentFiles) {
    const Template& t = session.tmpl;
    if (!t.isUntitled())
        return QFileInfo(t.TemplateFileName).absolutePath();
    const auto same = [](const QString& a, const QString& b) {
        return QDir::cleanPath(QDir(a).absolutePath()) == QDir::cleanPath(QDir(b).absolutePath());
    };
    if (!session.workingFolder().isEmpty() && !same(session.workingFolder(), session.homeFolder) &&
        !same(session.workingFolder(), QDir::rootPath()))
        return session.workingFolder();
    for (const QString& file : recentFiles) {
        const QFileInfo recent(file);
        if (recent.absoluteDir().exists())
            return recent.absolutePath();
    }
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

} // namespace mervak
