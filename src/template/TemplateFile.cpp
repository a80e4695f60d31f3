#include "template/TemplateFile.h"

#include "platform/PathResolver.h"
#include "template/FileAccess.h"
#include "template/MvwReader.h"
#include "template/MvwWriter.h"
#include "template/TemplateRelocation.h"

#include <QDir>
#include <QFileInfo>

namespace mervak {

namespace {

bool hasExtension(const QString& path, const char* extension) {
    return path.toUpper().endsWith(QLatin1String(extension));
}

QString localFileName(const QString& name, const QString& defaultFolder) {
    QString path = name;
    if (QFileInfo(name).isRelative() && !defaultFolder.isEmpty())
        path = QDir(defaultFolder).filePath(name);
    const QString existing = findCaseInsensitive(path);
    return QFileInfo(existing.isEmpty() ? path : existing).absoluteFilePath();
}

void takeGraphDate(Template& t, const QString& folder) {
    if (t.FitxGraf.isEmpty())
        return;
    const QFileInfo image(findCaseInsensitive(resolveStoredPath(t.FitxGraf, folder)));
    if (!image.isFile())
        return;
    t.GraphDate = image.lastModified();
    t.GraphChanged = false;
}

// The picture beside the ".mvd" with the same name, else that name with ".BMP".
QString importedSheetImage(const QFileInfo& mvd) {
    static const char* const extensions[] = {".BMP", ".JPG", ".JPEG", ".GIF", ".PNG", ".WMF"};
    const QString base = mvd.completeBaseName();
    for (const char* extension : extensions) {
        const QString found =
            findCaseInsensitive(mvd.dir().filePath(base + QLatin1String(extension)));
        if (!found.isEmpty())
            return QFileInfo(found).fileName();
    }
    return base + QStringLiteral(".BMP");
}

std::optional<TemplateError> importMvd(const QFileInfo& file, const QByteArray& bytes, Template& t,
                                       std::optional<TemplateError>* warning) {
    if (auto error = readMvd(bytes, t))
        return error;
    t.FitxGraf = importedSheetImage(file);
    const QString image = file.dir().filePath(t.FitxGraf);
    if (warning && !QFileInfo::exists(image))
        *warning = TemplateError{TemplateMessage::FileNotFound, image, 0, {}};
    return std::nullopt;
}

std::optional<TemplateError> readByExtension(const QFileInfo& file, const QByteArray& bytes,
                                             Template& t, std::optional<TemplateError>* warning) {
    if (hasExtension(file.fileName(), ".MVD"))
        return importMvd(file, bytes, t, warning);
    auto error = readMvw(bytes, t);
    if (error)
        return readErrorFor(file.absoluteFilePath(), *error);
    if (t.FormatVersion == 2)
        takeGraphDate(t, file.absolutePath());
    return std::nullopt;
}

// Drops the sheet-image loss when the import will find the image again by name.
void keepRealLosses(QList<MvdLoss>& losses, const Template& t, const QString& path) {
    const QString imageBase = QFileInfo(toLocalPath(t.FitxGraf)).completeBaseName();
    if (imageBase.compare(QFileInfo(path).completeBaseName(), Qt::CaseInsensitive) != 0)
        return;
    losses.removeIf([](const MvdLoss& loss) {
        return loss.kind == MvdLoss::Kind::HeaderField && loss.text == QStringLiteral("FitxGraf");
    });
}

SaveOutcome writeWith(Template& t, const QString& path, QByteArray (*layout)(const Template&)) {
    SaveOutcome outcome;
    outcome.path = QFileInfo(path).absoluteFilePath();
    const QString folder = QFileInfo(outcome.path).absolutePath();
    Template saved = t;
    if (movesFolder(t, outcome.path)) {
        const RelocationReport report =
            relocateFiles(saved, QFileInfo(t.TemplateFileName).absolutePath(), folder);
        outcome.copiedFiles = report.copied;
        outcome.missingFiles = report.missing;
        outcome.error = report.error;
    }
    storeRelativeInside(saved, folder);
    if (!outcome.error)
        outcome.error = writeFileBytes(outcome.path, layout(saved));
    if (outcome.error)
        return outcome;
    t = std::move(saved);
    t.TemplateFileName = outcome.path;
    t.Modified = false;
    return outcome;
}

SaveOutcome exportMvd(Template& t, const QString& path) {
    SaveOutcome outcome;
    outcome.path = QFileInfo(path).absoluteFilePath();
    MvdExport exported = writeMvd(t);
    keepRealLosses(exported.losses, t, outcome.path);
    outcome.losses = exported.losses;
    outcome.error = writeFileBytes(outcome.path, exported.bytes);
    if (!outcome.error) {
        t.TemplateFileName = outcome.path;
        t.Modified = false;
    }
    return outcome;
}

} // namespace

std::optional<TemplateError> loadTemplateFile(const QString& path, Template& out,
                                              std::optional<TemplateError>* warning) {
    const QFileInfo file(path);
    if (!hasExtension(file.fileName(), ".MVW") && !hasExtension(file.fileName(), ".MVD"))
        return TemplateError{TemplateMessage::WrongFormat, {}, 0, {}};
    QByteArray bytes;
    if (auto error = readFileBytes(file.absoluteFilePath(), bytes))
        return error;
    out.NewTemplate();
    if (auto error = readByExtension(file, bytes, out, warning))
        return error;
    out.TemplateFileName = file.absoluteFilePath();
    out.CurrentPage = 1;
    out.CurrentArea = 0;
    out.SelectedArea = 0;
    out.refreshPageAreaCount();
    return std::nullopt;
}

OpenOutcome openTemplate(Template& t, const QString& name, const QString& defaultFolder) {
    OpenOutcome outcome;
    if (name.isEmpty())
        return outcome;
    t.NewTemplate();
    Template loaded;
    outcome.error = loadTemplateFile(localFileName(name, defaultFolder), loaded, &outcome.warning);
    if (!outcome.error)
        t = std::move(loaded);
    return outcome;
}

SaveOutcome saveTemplate(Template& t, const QString& path) {
    return writeWith(t, path, writeMvw);
}

QString saveAsFileName(const QString& name) {
    if (hasExtension(name, ".MVD") || hasExtension(name, ".MVW"))
        return name;
    const QFileInfo file(name);
    const QString fileName = file.fileName();
    const qsizetype dot = fileName.indexOf(u'.');
    const QString stem = dot < 0 ? fileName : fileName.left(dot);
    const QString folder = name.left(name.size() - fileName.size());
    return folder + stem + QStringLiteral(".MVW");
}

SaveOutcome saveTemplateAs(Template& t, const QString& name) {
    const QString path = saveAsFileName(name);
    if (hasExtension(path, ".MVD"))
        return exportMvd(t, path);
    return writeWith(t, path, writeMvwSaveAs);
}

} // namespace mervak
