#include "app/DocumentController.h"

#include "editor/widgets/Dialogs.h"
#include "platform/Settings.h"
#include "sheet/Composition.h"
#include "template/TemplateFile.h"
#include "template/TemplateRelocation.h"

#include <QDir>
#include <QFileInfo>

namespace mervak {

namespace {

const QString kTemplateTitle = QStringLiteral("Carregar el fitxer de plantilla");
const QString kSaveTitle = QStringLiteral("Enregistrar el fitxer de plantilla");

// The name the save dialog offers: the file's own, except that "Desar" never
// offers to write the ".mvw" layout over an imported ".mvd".
QString saveName(const Template& t, bool saveAs) {
    const QFileInfo file(t.TemplateFileName);
    if (saveAs || file.suffix().toUpper() == QLatin1String("MVW"))
        return t.TemplateFileName;
    return file.dir().filePath(file.completeBaseName() + QStringLiteral(".mvw"));
}

} // namespace

DocumentController::DocumentController(Context context, MainWindow& window, QObject* parent)
    : QObject(parent), context_(std::move(context)), window_(window),
      recent_(PrivateProfile(settingsFilePath(context_.session.homeFolder))) {
    connect(&window_, &MainWindow::newRequested, this, &DocumentController::newTemplate);
    connect(&window_, &MainWindow::openRequested, this, &DocumentController::openWithDialog);
    connect(&window_, &MainWindow::saveRequested, this, &DocumentController::save);
    connect(&window_, &MainWindow::saveAsRequested, this, &DocumentController::saveAs);
    connect(&window_, &MainWindow::recentFileChosen, this, &DocumentController::openFile);
    connect(&window_, &MainWindow::templateDropped, this, &DocumentController::openFile);
    refreshRecentFiles();
}

QString DocumentController::title() const {
    const Template& t = context_.session.tmpl;
    if (t.isUntitled() && context_.session.language() == Language::Spanish)
        return QStringLiteral("Mervak - ") +
               TranslateCaption(Language::Spanish, QStringLiteral("(Sense nom)"));
    return windowTitle(t);
}

// Qt's "[*]" shows an asterisk while the Template has unsaved changes.
void DocumentController::refreshTitle() {
    window_.setWindowTitle(title() + QStringLiteral("[*]"));
    window_.setWindowModified(context_.session.tmpl.Modified);
}

void DocumentController::refreshRecentFiles() {
    window_.setRecentFiles(recent_.files());
}

bool DocumentController::mayDiscardChanges(bool canCancel) {
    if (!context_.session.tmpl.Modified)
        return true;
    switch (askToSaveChanges(&window_, context_.session.language(), canCancel)) {
    case SaveAnswer::Save:
        return save() || !canCancel;
    case SaveAnswer::Discard:
        return true;
    case SaveAnswer::Cancel:
        return false;
    }
    return false;
}

void DocumentController::newTemplate() {
    if (!mayDiscardChanges())
        return;
    context_.session.tmpl.NewTemplate();
    refreshTitle();
    context_.templateReplaced(true);
}

void DocumentController::openWithDialog() {
    if (!mayDiscardChanges())
        return;
    const QString path =
        chooseFileToOpen(&window_, context_.session.language(), kTemplateTitle,
                         {{QStringLiteral("Tauleta Windows"), {QStringLiteral("*.mvw")}},
                          {QStringLiteral("Tauleta MS-DOS"), {QStringLiteral("*.mvd")}}},
                         startFolder(context_.session, recent_.files()));
    if (!path.isEmpty())
        open(path);
}

void DocumentController::openFile(const QString& path) {
    if (mayDiscardChanges())
        open(path);
}

bool DocumentController::open(const QString& path) {
    const Language language = context_.session.language();
    const OpenOutcome outcome =
        openTemplate(context_.session.tmpl, path, context_.session.workingFolder());
    if (outcome.error) {
        showNotice(&window_, language, outcome.error->text(language), true);
        if (!QFileInfo::exists(path))
            recent_.remove(path);
    } else {
        if (outcome.warning)
            showNotice(&window_, language, outcome.warning->text(language));
        // Reading appends every Area, which marks the Template as changed;
        // what was just read equals the file.
        context_.session.tmpl.Modified = false;
        context_.session.workingFolder() =
            QFileInfo(context_.session.tmpl.TemplateFileName).absolutePath();
        remember(context_.session.tmpl.TemplateFileName);
    }
    refreshTitle();
    context_.templateReplaced(true);
    return !outcome.error;
}

bool DocumentController::save() {
    return saveWithDialog(false);
}

bool DocumentController::saveAs() {
    return saveWithDialog(true);
}

bool DocumentController::saveWithDialog(bool saveAs) {
    const Template& t = context_.session.tmpl;
    const QList<FileFilter> filters =
        saveAs ? QList<FileFilter>{{QStringLiteral("Plantilles de tauleta Windows"),
                                    {QStringLiteral("*.mvw")}},
                                   {QStringLiteral("Plantilles de tauleta MS-DOS"),
                                    {QStringLiteral("*.mvd")}}}
               : QList<FileFilter>{
                     {QStringLiteral("Teclat pantalla Windows"), {QStringLiteral("*.mvw")}}};
    int filter = 0;
    const QString start =
        t.isUntitled() ? startFolder(context_.session, recent_.files()) : saveName(t, saveAs);
    QString path =
        chooseFileToSave(&window_, context_.session.language(), kSaveTitle, filters, start,
                         saveAs ? QStringLiteral("MVW") : QStringLiteral("mvw"), &filter);
    if (path.isEmpty())
        return false;
    // The MS-DOS filter chosen with a name typed without its extension.
    if (saveAs && filter == 1 && QFileInfo(path).suffix().toUpper() == QLatin1String("MVW"))
        path = path.left(path.size() - 3) + QStringLiteral("MVD");
    const SaveOutcome outcome = write(path, saveAs);
    reportSave(outcome);
    refreshTitle();
    if (outcome.error)
        return false;
    context_.session.workingFolder() =
        QFileInfo(context_.session.tmpl.TemplateFileName).absolutePath();
    remember(context_.session.tmpl.TemplateFileName);
    context_.templateReplaced(false);
    return true;
}

// An untitled Template first takes along the files its relative names find
// in the working folder, so that they still work from the new file's folder.
SaveOutcome DocumentController::write(const QString& path, bool saveAs) {
    const auto save = [this, saveAs](Template& t, const QString& to) {
        return saveWithPageImages(t, to, saveAs, symbols_);
    };
    Template& t = context_.session.tmpl;
    if (!t.isUntitled())
        return save(t, path);
    Template relocated = t;
    const RelocationReport report =
        relocateUntitled(relocated, context_.session.workingFolder(), path);
    SaveOutcome outcome;
    outcome.error = report.error;
    if (report.error)
        return outcome;
    outcome = save(relocated, path);
    if (outcome.error)
        return outcome;
    outcome.copiedFiles = report.copied;
    outcome.missingFiles = report.missing;
    t = std::move(relocated);
    return outcome;
}

void DocumentController::reportSave(const SaveOutcome& outcome) {
    const Language language = context_.session.language();
    if (outcome.error) {
        showNotice(&window_, language, outcome.error->text(language), true);
        return;
    }
    if (!outcome.missingFiles.isEmpty())
        context_.showStatus(Message(language, Msg::FileNotFound) +
                            outcome.missingFiles.join(QStringLiteral(", ")));
    else
        context_.showStatus(QString());
}

void DocumentController::remember(const QString& path) {
    QString error;
    if (!recent_.add(path, &error))
        context_.showStatus(error);
    refreshRecentFiles();
}

} // namespace mervak
