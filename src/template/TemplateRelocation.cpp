#include "template/TemplateRelocation.h"

#include "platform/PathResolver.h"
#include "template/FileAccess.h"
#include "template/FileReferences.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <algorithm>
#include <utility>

namespace mervak {

namespace {

QString canonicalFolder(const QString& folder) {
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(QDir(folder).absolutePath()) : canonical;
}

class FileCopier {
public:
    FileCopier(QString sourceFolder, QString targetFolder, RelocationReport& report)
        : source_(std::move(sourceFolder)), target_(std::move(targetFolder)), report_(report) {}

    // The name the stored reference takes in the new folder; the stored text
    // itself when it names no file or the copy failed.
    QString relocate(const QString& stored) {
        const QString found = findCaseInsensitive(resolveStoredPath(stored, source_));
        if (found.isEmpty() || !QFileInfo(found).isFile()) {
            if (!report_.missing.contains(stored))
                report_.missing.append(stored);
            return stored;
        }
        if (const auto it = copies_.constFind(found); it != copies_.cend())
            return it.value();
        const QString name = copyUnderFreeName(found, QFileInfo(toLocalPath(stored)).fileName());
        if (name.isEmpty())
            return stored;
        copies_.insert(found, name);
        taken_.insert(name.toLower());
        return name;
    }

    // A program named relative to the folder goes along when it is there; any
    // other name is left as it stands, for the system's search path.
    QString relocateProgram(const QString& stored) {
        if (isAbsoluteStoredPath(stored))
            return stored;
        const QString found = findCaseInsensitive(QDir(source_).filePath(toLocalPath(stored)));
        return QFileInfo(found).isFile() ? relocate(stored) : stored;
    }

private:
    QString copyUnderFreeName(const QString& source, const QString& wanted) {
        QByteArray content;
        if (auto error = readFileBytes(source, content)) {
            report_.error = error;
            return {};
        }
        for (int n = 1;; ++n) {
            const QString name = n == 1 ? wanted : numbered(wanted, n);
            if (taken_.contains(name.toLower()))
                continue;
            const QString existing = findCaseInsensitive(QDir(target_).filePath(name));
            if (!existing.isEmpty()) {
                QByteArray present;
                if (!readFileBytes(existing, present) && present == content)
                    return QFileInfo(existing).fileName();
                continue;
            }
            const QString copy = QDir(target_).filePath(name);
            if (auto error = writeFileBytes(copy, content)) {
                report_.error = error;
                return {};
            }
            // A program keeps its permission to run.
            QFile::setPermissions(copy, QFileInfo(source).permissions());
            report_.copied.append(copy);
            return name;
        }
    }

    static QString numbered(const QString& name, int n) {
        const qsizetype dot = name.lastIndexOf(u'.');
        const QString suffix = QStringLiteral("-") + QString::number(n);
        return dot <= 0 ? name + suffix : name.left(dot) + suffix + name.mid(dot);
    }

    QString source_;
    QString target_;
    RelocationReport& report_;
    QHash<QString, QString> copies_; // found source file -> name in the target folder
    QSet<QString> taken_;            // names given in this save, lower case
};

void relocateActionText(FileCopier& copier, Area& a) {
    QList<FileReference> references =
        fileReferences(a.ActionText) + programReferences(a.ActionText);
    if (references.isEmpty())
        return;
    std::sort(references.begin(), references.end(),
              [](const FileReference& x, const FileReference& y) { return x.start < y.start; });
    QStringList names;
    for (const FileReference& reference : references)
        names.append(reference.keyword == QLatin1String("EXECUTA")
                         ? copier.relocateProgram(reference.name)
                         : copier.relocate(reference.name));
    a.ActionText = withReferenceNames(a.ActionText, references, names);
}

// `stored` relative to `folder` when it is a local absolute path inside it.
QString relativeInside(const QString& stored, const QDir& folder) {
    if (!stored.startsWith(u'/'))
        return stored;
    const QString relative = folder.relativeFilePath(QDir::cleanPath(stored));
    if (relative.startsWith(QStringLiteral("..")) || QDir::isAbsolutePath(relative) ||
        relative == u".")
        return stored;
    return QString(relative).replace(u'/', u'\\');
}

QString actionTextRelativeInside(const QString& actionText, const QDir& folder) {
    const QList<FileReference> references = fileReferences(actionText);
    QStringList names;
    for (const FileReference& reference : references)
        names.append(relativeInside(reference.name, folder));
    return withReferenceNames(actionText, references, names);
}

// A cell's picture file; library symbols are not files.
QString relocateCellPicture(FileCopier& copier, const QString& picture) {
    if (picture.isEmpty() || isSymbolReference(picture))
        return picture;
    return copier.relocate(picture);
}

void relocatePagePictures(FileCopier& copier, Template& t) {
    for (auto it = t.PagePictures.begin(); it != t.PagePictures.end(); ++it)
        it.value() = copier.relocate(it.value());
}

} // namespace

void storeRelativeInside(Template& t, const QString& folder) {
    const QDir dir(QDir::cleanPath(QDir(folder).absolutePath()));
    t.FitxGraf = relativeInside(t.FitxGraf, dir);
    for (int i = 1; i <= t.AreaCount(); ++i) {
        // Read first: most Areas name no such file, and writing through
        // area() would copy a shared array for nothing.
        const Area& a = std::as_const(t).area(i);
        const QString clip = relativeInside(a.Clip, dir);
        const QString text = actionTextRelativeInside(a.ActionText, dir);
        const QString picture = a.Cell ? relativeInside(a.Cell->Picture, dir) : QString();
        if (clip != a.Clip || text != a.ActionText || (a.Cell && picture != a.Cell->Picture)) {
            Area& changed = t.area(i);
            changed.Clip = clip;
            changed.ActionText = text;
            if (changed.Cell)
                changed.Cell->Picture = picture;
        }
    }
    for (auto it = t.PagePictures.begin(); it != t.PagePictures.end(); ++it)
        it.value() = relativeInside(it.value(), dir);
}

RelocationReport relocateFiles(Template& t, const QString& sourceFolder,
                               const QString& targetFolder) {
    RelocationReport report;
    FileCopier copier(sourceFolder, targetFolder, report);
    if (!t.FitxGraf.isEmpty())
        t.FitxGraf = copier.relocate(t.FitxGraf);
    for (int i = 1; i <= t.AreaCount() && !report.error; ++i) {
        Area& a = t.area(i);
        if (!a.Clip.isEmpty())
            a.Clip = copier.relocate(a.Clip);
        relocateActionText(copier, a);
        if (a.Cell)
            a.Cell->Picture = relocateCellPicture(copier, a.Cell->Picture);
    }
    if (!report.error)
        relocatePagePictures(copier, t);
    return report;
}

bool movesFolder(const Template& t, const QString& newFile) {
    if (t.isUntitled())
        return false;
    return canonicalFolder(QFileInfo(t.TemplateFileName).absolutePath()) !=
           canonicalFolder(QFileInfo(newFile).absolutePath());
}

RelocationReport relocateUntitled(Template& t, const QString& workingFolder,
                                  const QString& newFile) {
    const QString targetFolder = QFileInfo(newFile).absolutePath();
    if (canonicalFolder(workingFolder) == canonicalFolder(targetFolder))
        return {};
    return relocateFiles(t, workingFolder, targetFolder);
}

} // namespace mervak
