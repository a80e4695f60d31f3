#include "app/DocumentController.h"

#include "app/BoardExchange.h"
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
const FileFilter kMervakTemplates{QStringLiteral("Plantilles de Mervak"),
                                  {QStringLiteral("*.mvw")}};
const FileFilter kMsDosTemplates{QStringLiteral("Plantilles antigues de MS-DOS"),
                                 {QStringLiteral("*.mvd")}};

// The name the save dialog offers: the file's own, except that "Desar" never
// offers to write the ".mvw" layout over an imported ".mvd".
QString saveName(const Template& t, bool saveAs) {
    const QFileInfo file(t.TemplateFileName);
    if (saveAs || file.suffix().toUpper() == QLatin1String("MVW"))
        return t.TemplateFileName;
    return file.dir().filePath(file.completeBaseName() + QStringLiteral(".mvw"));
}

// A file's problem as the teacher reads it: the numbered message with the
// file, where and why it failed when that is known, and what to do next.
QString withNextStep(const TemplateError& error, const QString& path, Language language) {
    QString text = error.text(language);
    if (!error.argument.contains(path) && error.message != Msg::FileNotFound)
        text += QStringLiteral(" (") + path + u')';
    if (error.line > 0)
        text += TranslateCaption(language, QStringLiteral(", línia %1")).arg(error.line);
    if (!error.detail.isEmpty())
        text += QStringLiteral(": ") + error.detail;
    const char* next = nullptr;
    switch (error.message) {
    case Msg::ReadError:
    case Msg::WrongFormat:
        next =
            "Comproveu que és una plantilla de Mervak (.mvw o .mvd) i, si està malmesa, obriu-ne "
            "una còpia.";
        break;
    case Msg::NewerVersion:
        next = "Actualitzeu Mervak per obrir-la.";
        break;
    case Msg::FileNotFound:
        next = "Poseu el fitxer a la carpeta de la plantilla i torneu-la a obrir.";
        break;
    case Msg::GeneralError:
        next = "Deseu-la en una altra carpeta amb «Desar ...».";
        break;
    default:
        break;
    }
    if (next)
        text += u'\n' + TranslateCaption(language, QString::fromUtf8(next));
    return text;
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
    context_.session.tmpl.SoundActive = -1; // a new sheet is heard
    refreshTitle();
    context_.templateReplaced(true);
    emit templateOpened(QString());
}

void DocumentController::openWithDialog() {
    if (!mayDiscardChanges())
        return;
    const QString path = chooseFileToOpen(&window_, context_.session.language(), kTemplateTitle,
                                          {kMervakTemplates, kMsDosTemplates, boardFilter(false)},
                                          startFolder(context_.session, recent_.files()));
    if (!path.isEmpty())
        open(path);
}

bool DocumentController::openLast() {
    for (const QString& path : recent_.files())
        if (QFileInfo(path).isFile())
            return open(path);
    return false;
}

void DocumentController::openFile(const QString& path) {
    if (mayDiscardChanges())
        open(path);
}

bool DocumentController::open(const QString& path) {
    const Language language = context_.session.language();
    // A board is imported into a Template of its own, which is then opened.
    if (isBoardFile(path)) {
        const QString imported = importBoardWithDialog(&window_, language, path);
        return !imported.isEmpty() && open(imported);
    }
    const OpenOutcome outcome =
        openTemplate(context_.session.tmpl, path, context_.session.workingFolder());
    if (outcome.error) {
        showNotice(&window_, language, withNextStep(*outcome.error, path, language), true);
        if (!QFileInfo::exists(path))
            recent_.remove(path);
    } else {
        if (outcome.warning)
            showNotice(&window_, language, withNextStep(*outcome.warning, path, language));
        // Reading appends every Area, which marks the Template as changed;
        // what was just read equals the file.
        context_.session.tmpl.Modified = false;
        context_.session.workingFolder() =
            QFileInfo(context_.session.tmpl.TemplateFileName).absolutePath();
        remember(context_.session.tmpl.TemplateFileName);
    }
    refreshTitle();
    context_.templateReplaced(true);
    emit templateOpened(outcome.error ? QString() : context_.session.tmpl.TemplateFileName);
    return !outcome.error;
}

// A Template that has its own ".mvw" file is saved there without asking, as
// in other programs; an untitled one or an imported ".mvd" asks where.
bool DocumentController::save() {
    const Template& t = context_.session.tmpl;
    if (t.isUntitled() || QFileInfo(t.TemplateFileName).suffix().toUpper() != QLatin1String("MVW"))
        return saveWithDialog(false);
    return finishSave(write(t.TemplateFileName, false));
}

bool DocumentController::saveAs() {
    return saveWithDialog(true);
}

bool DocumentController::saveWithDialog(bool saveAs) {
    const Template& t = context_.session.tmpl;
    QList<FileFilter> filters = saveAs ? QList<FileFilter>{kMervakTemplates, kMsDosTemplates}
                                       : QList<FileFilter>{kMervakTemplates};
    if (saveAs)
        filters.append(boardFilter(true));
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
    // Boards are an export: the Template stays what and where it was.
    const bool package = QFileInfo(path).suffix().toLower() == QLatin1String("obz");
    if (saveAs && filter == 2 && !package)
        path = QFileInfo(path).dir().filePath(QFileInfo(path).completeBaseName() +
                                              QStringLiteral(".obz"));
    if (saveAs && (filter == 2 || package))
        return exportBoardReporting(&window_, context_.session.language(), t, path,
                                    PictureFiles{t.isUntitled()
                                                     ? context_.session.workingFolder()
                                                     : QFileInfo(t.TemplateFileName).absolutePath(),
                                                 symbols_});
    return finishSave(write(path, saveAs));
}

bool DocumentController::finishSave(const SaveOutcome& outcome) {
    reportSave(outcome);
    refreshTitle();
    if (outcome.error)
        return false;
    context_.session.workingFolder() =
        QFileInfo(context_.session.tmpl.TemplateFileName).absolutePath();
    remember(context_.session.tmpl.TemplateFileName);
    context_.templateReplaced(false);
    emit templateSaved(context_.session.tmpl.TemplateFileName);
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
        showNotice(&window_, language,
                   withNextStep(*outcome.error, context_.session.tmpl.TemplateFileName, language),
                   true);
        return;
    }
    if (!outcome.missingFiles.isEmpty())
        context_.showStatus(Message(language, Msg::FileNotFound) +
                            outcome.missingFiles.join(QStringLiteral(", ")) + QStringLiteral(". ") +
                            TranslateCaption(language, QStringLiteral("Poseu-lo a la carpeta de "
                                                                      "la plantilla.")));
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
