#include "app/Application.h"

#include "app/DeviceSetupDialog.h"
#include "app/TrackerCalibrationForm.h"
#include "devices/QtSerialLink.h"
#include "editor/AreaGeometry.h"
#include "editor/widgets/Captions.h"
#include "editor/widgets/Dialogs.h"
#include "editor/widgets/PlantForm.h"
#include "platform/Checked16.h"
#include "platform/HomeFolder.h"
#include "platform/Language.h"
#include "sheet/SymbolLibrary.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>

namespace mervak {

namespace {

constexpr int kTargetTickMs = 200;

struct ModelInfo {
    const char* keyword;
    const char* picture;
};

// The picture of each device model, shipped with the program.
constexpr ModelInfo kModels[] = {
    {"DIL", ":/icones/tauletadil.png"},    {"EASY", ":/icones/tauletaeasy.png"},
    {"GENIUS", ":/icones/genius.png"},     {"TRUSTMASTER", ":/icones/dancepad.png"},
    {"DANCEPAD", ":/icones/dancepad.png"}, {"VISTAL", ":/icones/vistal.png"},
};

QString modelPicture(const QString& model) {
    for (const auto& info : kModels)
        if (model == QLatin1String(info.keyword))
            return QString::fromLatin1(info.picture);
    return {};
}

} // namespace

Application::Application(const QStringList& arguments, const QString& homeFolder, bool locked)
    : arguments_(arguments), session_(homeFolder), locked_(locked),
      autostart_(Autostart::currentConfigFolder()), keyboard_(x11_), pointer_(x11_), windows_(x11_),
      midi_(audio_), sound_(audio_, midi_), speechEngine_(audio_), speech_(speechEngine_),
      recovery_(homeFolder),
      targetTracker_(windows_, [this](WindowId window) { return isOwnWindow(window); }),
      reader_(speechEngine_) {
    const ActionPlatform platform{keyboard_, windows_, pointer_, clipboard_, launcher_,
                                  sound_,    speech_,  clock_,   registry_};
    runner_ = std::make_unique<ActionRunner>(
        platform, session_.actionState, [this] { return targetTitle(); },
        [this](WindowId window) { return isOwnWindow(window); });
    dispatcher_ = std::make_unique<PressDispatcher>(
        session_, clipboard_,
        PressDispatcher::Hooks{[this](const QString& text) { runner_->SendActionText(text); },
                               [this] { return runner_->isBusy(); }, [this] { sound_.click(); }});
    tablet_ = std::make_unique<TabletControl>(session_, makeQtSerialLink, *dispatcher_);
    connect(&timer2_, &QTimer::timeout, this, [this] {
        session_.actionState.TargetWindow = targetTracker_.tick(session_.actionState.TargetWindow);
    });
    assembly_ = std::make_unique<EditorAssembly>(
        session_, window_,
        EditorAssembly::Effects{[this] { sound_.click(); },
                                [this](const QString& text) { runner_->SendActionText(text); },
                                [this](const QString& text) { setStatus(text); },
                                [this] { applyTemplateSpeech(); }});
    wireWindow();
    wireEditor();
    wireRunner();
}

Application::~Application() = default;

bool Application::start() {
    // Before any file or device is touched; the language is not read yet.
    if (!instance_.acquire()) {
        QMessageBox::warning(nullptr, QStringLiteral("MERVAK"),
                             Message(Language::Catalan, Msg::AlreadyRunning));
        return false;
    }
    readConfiguration();
    startSound();
    session_.tmpl.NewTemplate();
    session_.tmpl.SV_velocitat = speech_.SpeechSpeed;
    applyTemplateSpeech();
    assembly_->refresh();
    if (locked_)
        window_.lock();
    window_.setStartAtLoginChecked(autostart_.isSet());
    window_.show();
    if (recovery_.exists())
        startupNotice_ =
            TranslateCaption(session_.language(), QStringLiteral("Hi ha edicions no desades a ")) +
            recovery_.path();
    setStatus(startupNotice_);
    tablet_->start();
    openFromCommandLine();
    timer2_.start(kTargetTickMs);
    return true;
}

void Application::readConfiguration() {
    session_.settings = readSettings(PrivateProfile(settingsFilePath(session_.homeFolder)));
    session_.catalogue = MacroCatalogue::read(MacroCatalogue::locate(
        session_.homeFolder, programDataFolder(QApplication::applicationDirPath())));
    editor().refreshCatalogue();
    runner_->setLanguage(session_.language());
    translate();
    window_.setModelPicture(QPixmap(modelPicture(session_.settings.model)));
    window_.setTrackerCalibrationShown(session_.settings.model == QLatin1String("VISTAL"));
}

// A device present at start with a Template named on the command line leaves
// the screen to the pupil's program; a restart from the test dialog changes nothing.
void Application::onDeviceStartFinished(bool present) {
    if (testingTablet_)
        return;
    if (present && openedFromCommandLine_)
        window_.showMinimized();
    if (!present)
        showNotice(&window_, session_.language(), tablet_->caption());
}

void Application::openFromCommandLine() {
    const QStringList rest = arguments_;
    if (rest.isEmpty())
        return;
    const QString& path = rest.first();
    const qsizetype slash = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
    if (slash >= 0)
        session_.actionState.WorkingFolder = path.left(slash);
    openedFromCommandLine_ = true;
    const QString folder = session_.actionState.WorkingFolder;
    document().open(path.toUpper());
    // A Template named on the command line keeps the folder it was named from.
    session_.actionState.WorkingFolder = folder;
    activateTarget();
}

void Application::wireWindow() {
    connect(&window_, &MainWindow::tabletButtonClicked, tablet_.get(),
            [this] { tablet_->SetTabletActive(!tablet_->isActive()); });
    connect(&window_, &MainWindow::languageChosen, this, &Application::chooseLanguage);
    connect(&window_, &MainWindow::soundToggled, this, [this](bool on) {
        session_.tmpl.SoundActive = on ? -1 : 0;
        session_.tmpl.Modified = true;
        window_.setWindowModified(true);
    });
    connect(&window_, &MainWindow::virtualTabletToggled, this, &Application::showVirtualTablet);
    connect(&window_, &MainWindow::activateTargetRequested, this, &Application::activateTarget);
    connect(&window_, &MainWindow::quitRequested, this, &Application::quit);
    connect(&window_, &MainWindow::startAtLoginToggled, this, &Application::setStartAtLogin);
    connect(&window_, &MainWindow::propertiesRequested, this, &Application::editProperties);
    connect(&window_, &MainWindow::trackerCalibrationRequested, this,
            &Application::calibrateTracker);
    connect(&window_, &MainWindow::tabletTestRequested, this, &Application::testTablet);
    connect(&window_, &MainWindow::exportSheetRequested, this, [this] {
        SheetExport::exportWithDialog(&window_, session_.tmpl, session_.language(),
                                      &exportOptions_);
    });
    connect(&window_, &MainWindow::thumbnailRequested, this, [this] {
        SheetExport::saveThumbnailWithDialog(&window_, session_.tmpl, session_.language(),
                                             exportOptions_.symbols);
    });
    connect(&window_, &MainWindow::printSheetRequested, this, [this] {
        SheetExport::printWithDialog(&window_, session_.tmpl, session_.language(), exportOptions_);
    });
    connect(&window_, &MainWindow::sheetIconToggled, this, [this](bool on) {
        sheetIcon_ = on;
        refreshSheetIcon();
    });
    connect(&window_, &MainWindow::aboutRequested, this, [this] {
        QMessageBox box(QMessageBox::Information, Message(session_.language(), Msg::AboutTitle),
                        Message(session_.language(), Msg::AboutText), QMessageBox::NoButton,
                        &window_);
        box.setInformativeText(symbolLibraryCredit(session_.language()));
        box.addButton(TranslateCaption(session_.language(), QStringLiteral("Acceptar")),
                      QMessageBox::AcceptRole);
        box.exec();
    });
    connect(&virtualTablet_, &VirtualTablet::pressed, dispatcher_.get(),
            &PressDispatcher::setVirtualPress);
    connect(&virtualTablet_, &VirtualTablet::visibilityChanged, this, [this](bool shown) {
        tablet_->setVirtualTabletShown(shown);
        window_.setVirtualTabletChecked(shown);
        if (!shown)
            keepVirtualTabletPlace();
    });
    connect(dispatcher_.get(), &PressDispatcher::virtualPressPending, &virtualTablet_,
            &VirtualTablet::showBusy);
    connect(dispatcher_.get(), &PressDispatcher::refocusTargetRequested, this, [this] {
        if (session_.actionState.TargetWindow != kNoWindow &&
            windows_.activeWindow() != session_.actionState.TargetWindow)
            windows_.activate(session_.actionState.TargetWindow);
    });
    connect(dispatcher_.get(), &PressDispatcher::reclaimTargetFocusRequested, this,
            [this] { targetTracker_.reclaimFocus(session_.actionState.TargetWindow); });
    connect(dispatcher_.get(), &PressDispatcher::problem, this, &Application::setStatus);
    connect(tablet_.get(), &TabletControl::stateChanged, &window_, &MainWindow::setTabletState);
    connect(tablet_.get(), &TabletControl::pointerMoved, &virtualTablet_,
            &VirtualTablet::showPointer);
    connect(tablet_.get(), &TabletControl::startFinished, this,
            &Application::onDeviceStartFinished);
    // Once the search is over, what the start-up had to say comes back.
    connect(tablet_.get(), &TabletControl::statusMessage, this,
            [this](const QString& text) { setStatus(text.isEmpty() ? startupNotice_ : text); });
    connect(tablet_.get(), &TabletControl::beepRequested, this, [this] { sound_.click(); });
    connect(tablet_.get(), &TabletControl::noticeRequested, this,
            [this](const QString& text) { showNotice(&window_, session_.language(), text); });
}

void Application::wireEditor() {
    EditorController& editor = assembly_->editor();
    connect(&editor, &EditorController::templateChanged, this, &Application::refreshVirtualTablet);
    connect(&editor, &EditorController::sheetPressed, this, [this](QPointF point) {
        dispatcher_->DispatchPress(roundToInt16(point.x()), roundToInt16(point.y()));
    });
    connect(dispatcher_.get(), &PressDispatcher::drawWithDevice, &editor.areas(),
            &AreaEditor::drawWithDevice);
    connect(window_.editorActions().draw, &QAction::toggled, dispatcher_.get(),
            &PressDispatcher::setDrawWithDevice);
}

void Application::wireRunner() {
    connect(runner_.get(), &ActionRunner::problem, this, &Application::setStatus);
    connect(runner_.get(), &ActionRunner::busyChanged, this, [this](bool busy) {
        if (!busy)
            dispatcher_->actionTextsFinished();
    });
    connect(runner_.get(), &ActionRunner::pendingPageSet, this, [this](int page) {
        session_.actionState.pendingPage.reset();
        editor().areas().showPage(page);
    });
    connect(runner_.get(), &ActionRunner::openTemplateRequested, &document(),
            &DocumentController::openFile);
    connect(runner_.get(), &ActionRunner::closeRequested, this, &Application::closeAtOnce);
}

// The press click comes from the program's data unless the home folder holds its
// own clic.wav. Speech is looked for once.
void Application::startSound() {
    QFile own(QDir(session_.homeFolder).filePath(QStringLiteral("clic.wav")));
    QFile builtIn(QStringLiteral(":/sons/clic.wav"));
    if (!(own.open(QIODevice::ReadOnly) && sound_.setClick(own.readAll())) &&
        builtIn.open(QIODevice::ReadOnly))
        sound_.setClick(builtIn.readAll());
    session_.actionState.speechAvailable = speech_.StartSpeech();
    speech_.setReaderShown([this](const QString& text) { reader_.showText(text); });
}

void Application::applyTemplateSpeech() {
    const Template& t = session_.tmpl;
    session_.actionState.speakerNumber =
        speech_.applyTemplate(t.sv_idioma, t.sv_locutor, t.SV_velocitat);
}

void Application::translate() {
    sound_.setLanguage(session_.language());
    speechEngine_.setMessageLanguage(session_.language());
    assembly_->translate(session_.language());
    tablet_->retranslate();
}

void Application::chooseLanguage(Language language) {
    session_.settings.language = language;
    QString error;
    if (!writeLanguage(PrivateProfile(settingsFilePath(session_.homeFolder)), language, &error))
        setStatus(error);
    runner_->setLanguage(language);
    translate();
}

// The properties dialog edits the header; its default folder is the working folder.
void Application::editProperties() {
    const Template before = session_.tmpl;
    const auto voices = [this](int16_t language) {
        return speechEngine_.speakerNames(language == 1 ? "es" : "ca");
    };
    if (!PlantForm::edit(&window_, session_.tmpl, windows_, session_.catalogue, session_.language(),
                         &session_.actionState.WorkingFolder, voices))
        return;
    editor().keepForUndo(before);
    assembly_->refresh();
    applyTemplateSpeech();
}

void Application::calibrateTracker() {
    TrackerCalibrationForm form(session_, *tablet_, &window_);
    form.exec();
}

// The model may change in the dialog, and its picture with it.
void Application::testTablet() {
    testingTablet_ = true;
    DeviceSetupDialog dialog(session_, *tablet_, editor().sheetAreas(), editor().sheetPicture(),
                             sheetSizeMm(session_.tmpl), &window_);
    dialog.exec();
    testingTablet_ = false;
    window_.setModelPicture(QPixmap(modelPicture(session_.settings.model)));
}

// The virtual tablet shows the pupil's sheet: the Areas without the editor's marks.
// "Icona làmina": the window's icon shows the current page, so that the
// task bar tells the sheets apart.
void Application::refreshSheetIcon() {
    if (!sheetIcon_) {
        window_.setWindowIcon(QIcon());
        return;
    }
    const QImage page = editor().sheetPicture();
    if (!page.isNull())
        window_.setWindowIcon(QIcon(QPixmap::fromImage(
            page.scaled(128, 128, Qt::KeepAspectRatio, Qt::SmoothTransformation))));
}

void Application::refreshVirtualTablet() {
    QList<SheetArea> areas = editor().sheetAreas();
    for (SheetArea& area : areas) {
        area.selected = false;
        area.number = 0;
    }
    SheetView* sheet = virtualTablet_.sheet();
    sheet->setSheetSize(sheetSizeMm(session_.tmpl));
    sheet->setPicture(editor().sheetPicture());
    sheet->setAreas(areas);
    window_.setSoundChecked(session_.tmpl.SoundActive != 0);
    refreshSheetIcon();
}

void Application::activateTarget() {
    const QString title = targetTitle();
    if (title.isEmpty() || title == QLatin1String("|"))
        return;
    if (const WindowId window = windows_.findByTitle(title); window != kNoWindow) {
        windows_.activate(window);
        session_.actionState.TargetWindow = window;
    }
}

// The Template's target title, else the title of the last window that had the focus.
QString Application::targetTitle() const {
    if (!session_.tmpl.TxFinestra.isEmpty())
        return session_.tmpl.TxFinestra;
    if (session_.actionState.TargetWindow == kNoWindow)
        return {};
    return const_cast<X11WindowSystem&>(windows_).title(session_.actionState.TargetWindow);
}

bool Application::isOwnWindow(WindowId window) const {
    for (const QWidget* widget : QApplication::topLevelWidgets())
        if (widget->internalWinId() == window)
            return true;
    return false;
}

void Application::showVirtualTablet(bool shown) {
    if (shown)
        virtualTablet_.showAt(session_.settings.virtualTabletPlace, window_,
                              sheetSizeMm(session_.tmpl));
    else
        virtualTablet_.hide();
}

// Where the user left the virtual tablet, for the next time it shows, in this
// run or the next.
void Application::keepVirtualTabletPlace() {
    const QRect place = virtualTablet_.place();
    if (place == session_.settings.virtualTabletPlace)
        return;
    session_.settings.virtualTabletPlace = place;
    QString error;
    if (!writeVirtualTabletPlace(PrivateProfile(settingsFilePath(session_.homeFolder)), place,
                                 &error))
        setStatus(error);
}

void Application::setStatus(const QString& text) {
    window_.setStatusCaption(text);
}

// Quitting asks about unsaved changes first.
void Application::quit() {
    if (locked_ ? teacherConfirmsClose() : document().mayDiscardChanges())
        closeProgram();
}

// A pupil's press types into the pupil's program, never into this dialog, so
// only someone at the keyboard who knows the word can end a locked session.
bool Application::teacherConfirmsClose() {
    const Language language = session_.language();
    QInputDialog dialog(&window_);
    dialog.setWindowTitle(QStringLiteral("MERVAK"));
    dialog.setLabelText(TranslateCaption(language, QStringLiteral("Paraula per tancar:")));
    dialog.setTextEchoMode(QLineEdit::Password);
    dialog.setOkButtonText(TranslateCaption(language, QStringLiteral("Acceptar")));
    dialog.setCancelButtonText(TranslateCaption(language, QStringLiteral("Cancel·lar")));
    if (dialog.exec() != QDialog::Accepted)
        return false;
    if (dialog.textValue() == session_.settings.closeWord)
        return true;
    setStatus(TranslateCaption(language, QStringLiteral("Paraula incorrecta")));
    return false;
}

// The entry opens the Template as it is saved now, with this home folder.
void Application::setStartAtLogin(bool on) {
    const QFileInfo saved(session_.tmpl.TemplateFileName);
    std::optional<QString> error;
    if (!on) {
        error = autostart_.remove();
    } else if (!saved.isFile()) {
        error =
            TranslateCaption(session_.language(),
                             QStringLiteral("Deseu la plantilla abans d'iniciar-la amb la sessió"));
    } else {
        error = autostart_.set({QApplication::applicationFilePath(), QStringLiteral("--home"),
                                session_.homeFolder, saved.absoluteFilePath()});
    }
    if (error)
        setStatus(*error);
    window_.setStartAtLoginChecked(autostart_.isSet());
}

// A TANCAR command ends the program without asking; unsaved edits are kept in
// the recovery file, which the next start points out.
void Application::closeAtOnce() {
    if (const auto error = recovery_.keepUnsaved(session_.tmpl))
        qWarning("%s", qPrintable(error->text(session_.language())));
    closeProgram();
}

// The closing routine: the device stops, then the program ends.
void Application::closeProgram() {
    timer2_.stop();
    tablet_->stop();
    virtualTablet_.hide();
    window_.closeForGood();
    QApplication::quit();
}

} // namespace mervak
