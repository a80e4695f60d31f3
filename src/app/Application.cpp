#include "app/Application.h"

#include "app/DeviceSetupDialog.h"
#include "app/ScanningDialog.h"
#include "app/TrackerCalibrationForm.h"
#include "devices/QtSerialLink.h"
#include "editor/AreaGeometry.h"
#include "editor/widgets/Captions.h"
#include "editor/widgets/Dialogs.h"
#include "editor/widgets/PlantForm.h"
#include "platform/Checked16.h"
#include "platform/HomeFolder.h"
#include "platform/Language.h"
#include "session/TemplateAudit.h"
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
// How long the pupil pauses before borrowed keycodes go back.
constexpr int kLayoutReturnMs = 3000;

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

// The backend MERVAK.INI or the command line names, else the session's; the
// portal's consent is kept in MERVAK.INI.
std::unique_ptr<PlatformBackends> connectBackends(const QString& homeFolder,
                                                  PlatformKind platform) {
    const PrivateProfile settingsFile(settingsFilePath(homeFolder));
    const Settings settings = readSettings(settingsFile);
    PlatformBackends::Options options;
    options.kind = platform;
    options.setting = settings.platform;
    options.portalToken = settings.portalRestoreToken;
    options.keepPortalToken = [settingsFile](const QString& token) {
        writePortalRestoreToken(settingsFile, token);
    };
    return PlatformBackends::create(options);
}

// On a Wayland desktop Mervak's windows are X11 windows shown through XWayland
// (main() asks for it); there the virtual tablet frames itself.
VirtualTablet::Frame tabletFrame() {
    const bool throughXWayland = QGuiApplication::platformName() == QLatin1String("xcb") &&
                                 !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    return throughXWayland ? VirtualTablet::Frame::Own : VirtualTablet::Frame::WindowManager;
}

} // namespace

Application::Application(const QStringList& arguments, const QString& homeFolder, bool locked,
                         PlatformKind platformKind)
    : arguments_(arguments), session_(homeFolder), locked_(locked),
      autostart_(Autostart::currentConfigFolder()),
      backends_(connectBackends(homeFolder, platformKind)), keyboard_(backends_->keyboard()),
      pointer_(backends_->pointer()), windows_(backends_->windows()), midi_(audio_),
      sound_(audio_, midi_), speechEngine_(audio_), speech_(speechEngine_),
      soundSwitch_(sound_, speech_, [this] { return session_.tmpl.SoundActive != 0; }),
      recovery_(homeFolder),
      targetTracker_(windows_, [this](WindowId window) { return isOwnWindow(window); }),
      virtualTablet_(tabletFrame()), reader_(speechEngine_) {
    if (tabletFrame() == VirtualTablet::Frame::Own)
        tabletKeeper_ = std::make_unique<X11TopKeeper>();
    const ActionPlatform platform{keyboard_,    windows_,     pointer_, clipboard_, launcher_,
                                  soundSwitch_, soundSwitch_, clock_,   registry_};
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
    wireTrust();
    wireScanning();
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
    session_.tmpl.SoundActive = -1; // a new sheet is heard
    session_.tmpl.SV_velocitat = speech_.SpeechSpeed;
    applyTemplateSpeech();
    assembly_->refresh();
    if (locked_)
        window_.lock();
    window_.setStartAtLoginChecked(autostart_.isSet());
    window_.setReopenLastChecked(session_.settings.reopenLastTemplate);
    window_.show();
    if (recovery_.exists())
        startupNotice_ =
            TranslateCaption(session_.language(), QStringLiteral("Hi ha edicions no desades a ")) +
            recovery_.path() +
            TranslateCaption(session_.language(),
                             QStringLiteral(". Obriu-lo amb «Obrir ...» i deseu-lo amb un altre "
                                            "nom per recuperar-les."));
    else
        startupNotice_ = backends_->notice(session_.language());
    setStatus(startupNotice_);
    tablet_->start();
    scanning_->start();
    openFromCommandLine();
    timer2_.start(kTargetTickMs);
    return true;
}

void Application::readConfiguration() {
    session_.settings = readSettings(PrivateProfile(settingsFilePath(session_.homeFolder)));
    const QString dataFolder = programDataFolder(QApplication::applicationDirPath());
    session_.catalogue =
        MacroCatalogue::read(MacroCatalogue::locate(session_.homeFolder, dataFolder));
    session_.trust.configure(
        dataFolder, splitTrustedFolders(session_.settings.trustedFolders, QDir::homePath()),
        TrustStore(QDir(session_.homeFolder).filePath(TrustStore::kFileName)));
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
}

// Without a device the program still serves through the virtual tablet: the
// caption says so and how, with no box to dismiss at every start.
void Application::showTabletState(bool active, const QString& caption) {
    const bool missing = !session_.DevicePresent && !caption.isEmpty();
    const QString help =
        missing ? TranslateCaption(session_.language(),
                                   QStringLiteral("Premeu F12 per fer servir la tauleta virtual a "
                                                  "la pantalla, o connecteu la tauleta i feu "
                                                  "«Test de la tauleta»."))
                : QString();
    window_.setTabletState(active, missing ? caption + QStringLiteral(". ") + help : caption);
    window_.setTabletHelp(missing ? caption + QStringLiteral(".\n") + help : QString());
}

void Application::setReopenLast(bool on) {
    session_.settings.reopenLastTemplate = on;
    QString error;
    if (!writeReopenLastTemplate(PrivateProfile(settingsFilePath(session_.homeFolder)), on, &error))
        setStatus(error);
}

void Application::showHelp() {
    const QString folder = QDir(programDataFolder(QApplication::applicationDirPath()))
                               .filePath(QStringLiteral("ajuda"));
    const QString path = guidePath(folder, session_.language());
    if (!help_.showGuide(path, session_.language()))
        setStatus(TranslateCaption(session_.language(),
                                   QStringLiteral("No es troba la guia %1. Torneu a instal·lar "
                                                  "el paquet mervak."))
                      .arg(path));
}

// Without a file named, the Template used last opens again, unless the
// teacher turned that off.
void Application::openFromCommandLine() {
    const QStringList rest = arguments_;
    if (rest.isEmpty()) {
        if (session_.settings.reopenLastTemplate)
            document().openLast();
        return;
    }
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
        if (tabletKeeper_)
            tabletKeeper_->keep(shown ? virtualTablet_.winId() : 0);
        window_.setVirtualTabletChecked(shown);
        if (!shown)
            keepVirtualTabletPlace();
    });
    connect(&virtualTablet_, &VirtualTablet::placeChosen, this,
            &Application::keepVirtualTabletPlace);
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
    connect(tablet_.get(), &TabletControl::stateChanged, this, &Application::showTabletState);
    connect(&window_, &MainWindow::reopenLastToggled, this, &Application::setReopenLast);
    connect(&window_, &MainWindow::helpRequested, this, &Application::showHelp);
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

// A scanned choice is a press of the sheet, with the tablet's click.
void Application::wireScanning() {
    scanning_ = std::make_unique<ScanningController>(
        session_, clock_, switchGrab_, virtualTablet_.sheet(),
        ScanningController::Effects{[this](int16_t x, int16_t y) {
                                        if (session_.tmpl.SoundActive != 0)
                                            sound_.click();
                                        dispatcher_->DispatchPress(x, y);
                                    },
                                    [this](const QString& text) {
                                        if (const QString problem = speech_.speak(
                                                text, session_.actionState.speakerNumber);
                                            !problem.isEmpty())
                                            setStatus(problem);
                                    },
                                    [this] { return runner_->isBusy(); },
                                    [this] {
                                        if (!virtualTablet_.isVisible())
                                            showVirtualTablet(true);
                                    },
                                    [this](const QString& text) { setStatus(text); }});
    connect(&editor(), &EditorController::templateChanged, scanning_.get(),
            &ScanningController::templateChanged);
    connect(runner_.get(), &ActionRunner::busyChanged, scanning_.get(), [this](bool busy) {
        if (!busy)
            scanning_->actionTextsFinished();
    });
    connect(tablet_.get(), &TabletControl::deviceButton, scanning_.get(),
            &ScanningController::deviceButton);
    connect(&window_, &MainWindow::scanningRequested, this, &Application::editScanning);
}

// The pupil's settings go to MERVAK.INI; a Template's own go into it, to be saved with it.
void Application::editScanning() {
    const bool templateOnly = !session_.tmpl.Exploracio.isEmpty();
    const ScanSettings current =
        withTemplateScan(scanning_->userSettings(), session_.tmpl.Exploracio);
    ScanningDialog dialog(current, templateOnly, session_.language(), &window_);
    if (dialog.exec() != QDialog::Accepted)
        return;
    ScanSettings chosen = dialog.settings();
    const QString sheetText = dialog.templateOnly() ? templateScanText(chosen) : QString();
    if (sheetText != session_.tmpl.Exploracio) {
        editor().keepForUndo(session_.tmpl);
        session_.tmpl.Exploracio = sheetText;
        session_.tmpl.Modified = true;
        window_.setWindowModified(true);
    }
    if (dialog.templateOnly()) { // the switches stay the pupil's
        ScanSettings user = scanning_->userSettings();
        user.switches = chosen.switches;
        user.advance = chosen.advance;
        user.select = chosen.select;
        chosen = user;
    }
    QString error;
    if (!writeScanSettings(PrivateProfile(settingsFilePath(session_.homeFolder)), chosen, &error))
        setStatus(error);
    scanning_->setUserSettings(chosen);
}

void Application::wireRunner() {
    connect(runner_.get(), &ActionRunner::problem, this, &Application::setStatus);
    // Keycodes borrowed for characters the layout lacks stay while presses come in a
    // row (each keymap change costs every program on the desktop) and go back once the
    // pupil pauses.
    layoutReturn_.setSingleShot(true);
    layoutReturn_.setInterval(kLayoutReturnMs);
    connect(&layoutReturn_, &QTimer::timeout, this, [this] { keyboard_.restoreLayout([] {}); });
    connect(runner_.get(), &ActionRunner::busyChanged, this, [this](bool busy) {
        if (busy) {
            layoutReturn_.stop();
            return;
        }
        layoutReturn_.start();
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

// Every guarded command asks the policy; each Template opened is judged on its own.
void Application::wireTrust() {
    runner_->setGuard(&session_.trust);
    connect(&document(), &DocumentController::templateOpened, this, &Application::judgeTemplate);
    connect(&document(), &DocumentController::templateSaved, this, [this](const QString& file) {
        QString error;
        if (!session_.trust.saved(file, &error))
            setStatus(error);
    });
    connect(&trustQuestion_, &TrustQuestion::answered, this, [this](bool allow, bool remember) {
        QString error;
        if (!session_.trust.answer(allow, remember, &error))
            setStatus(error);
    });
}

// An untrusted Template with guarded commands asks once, never in a pupil's
// session; until someone allows it those commands are skipped.
void Application::judgeTemplate(const QString& file) {
    trustQuestion_.hide();
    if (file.isEmpty()) {
        session_.trust.untitled();
        return;
    }
    const TrustPolicy::Standing standing = session_.trust.opened(file);
    if (TrustPolicy::isTrusted(standing))
        return;
    const QList<AuditEntry> entries = auditTemplate(session_.tmpl, session_.trust);
    if (entries.isEmpty())
        return;
    for (const QString& line : TrustQuestion::describe(entries, session_.language()))
        qInfo("%s: %s", qPrintable(file), qPrintable(line));
    if (locked_ || standing == TrustPolicy::Standing::Denied)
        return;
    trustQuestion_.ask(file, entries, session_.language());
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
    soundSwitch_.setLanguage(session_.language());
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
    const Template& t = session_.tmpl;
    virtualTablet_.setTemplateName(
        t.isUntitled() ? TranslateCaption(session_.language(), QStringLiteral("(Sense nom)"))
                       : QFileInfo(t.TemplateFileName).completeBaseName(),
        session_.language());
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
    return windows_.title(session_.actionState.TargetWindow);
}

bool Application::isOwnWindow(WindowId window) const {
    if (const std::optional<bool> own = backends_->isOwnWindow(window))
        return *own;
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
    scanning_->stop();
    tablet_->stop();
    virtualTablet_.hide();
    window_.closeForGood();
    QApplication::quit();
}

} // namespace mervak
