#include "app/Application.h"

#include "action/SendKeysParser.h"
#include "devices/QtSerialLink.h"
#include "editor/widgets/Captions.h"
#include "editor/widgets/Dialogs.h"
#include "editor/widgets/PlantForm.h"
#include "platform/Checked16.h"
#include "platform/Language.h"

#include <QApplication>
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

Application::Application(const QStringList& arguments, const QString& homeFolder)
    : arguments_(arguments), homeFolder_(homeFolder), keyboard_(x11_), pointer_(x11_),
      windows_(x11_), sound_(QStringLiteral("No hi ha sortida de so: ")), easy_(makeQtSerialLink),
      easySource_(easy_),
      targetTracker_(windows_, [this](WindowId window) { return isOwnWindow(window); }) {
    actionState_.WorkingFolder = homeFolder_;
    const ActionPlatform platform{keyboard_, windows_, pointer_, clipboard_, launcher_,
                                  sound_,    speech_,  clock_,   registry_};
    runner_ =
        std::make_unique<ActionRunner>(platform, actionState_, [this] { return targetTitle(); });
    dispatcher_ = std::make_unique<PressDispatcher>(PressDispatcher::Context{
        template_, clipboard_, [this] { return actionState_.WorkingFolder; },
        [this](const QString& text) { runner_->SendActionText(text); },
        [] { QApplication::beep(); }, [this] { return settings_.language; }});
    connect(&timer1_, &QTimer::timeout, dispatcher_.get(), &PressDispatcher::tick);
    connect(&timer2_, &QTimer::timeout, this,
            [this] { actionState_.TargetWindow = targetTracker_.tick(actionState_.TargetWindow); });
    const auto language = [this] { return settings_.language; };
    const auto status = [this](const QString& text) { setStatus(text); };
    editor_ = std::make_unique<EditorController>(
        EditorController::Context{
            template_, homeFolder_, language, [this] { return actionState_.WorkingFolder; },
            [this] { return settings_.model; }, [] { QApplication::beep(); },
            [this](const QString& text) { runner_->SendActionText(text); },
            [](const QString& text) { return SendKeysParser::PlainKeys(text); }, status},
        EditorController::Views{window_, *window_.sheetPane(), *window_.panel(),
                                *window_.pageFrame()});
    document_ = std::make_unique<DocumentController>(
        DocumentController::Context{template_, actionState_.WorkingFolder, homeFolder_, language,
                                    [this] { editor_->refresh(); }, status},
        window_);
    wireWindow();
    wireEditor();
    wireRunner();
}

Application::~Application() {
    easy_.stop();
}

bool Application::start() {
    // Before any file or device is touched; the language is not read yet.
    if (!instance_.acquire()) {
        QMessageBox::warning(nullptr, QStringLiteral("MERVAK"), Message(Language::Catalan, 108));
        return false;
    }
    readConfiguration();
    template_.NewTemplate();
    document_->refreshTitle();
    editor_->refresh();
    window_.show();
    startDevice();
    openFromCommandLine();
    timer2_.start(kTargetTickMs);
    return true;
}

void Application::readConfiguration() {
    settings_ = readSettings(PrivateProfile(settingsFilePath(homeFolder_)));
    catalogue_ = MacroCatalogue::read(
        MacroCatalogue::locate(homeFolder_, QApplication::applicationDirPath()));
    editor_->setCatalogue(&catalogue_);
    easy_.setLanguage(settings_.language);
    runner_->setLanguage(settings_.language);
    easy_.setRetardPort(settings_.retardPort);
    translate();
    window_.setModelPicture(QPixmap(modelPicture(settings_.model)));
    timer1_.setInterval(settings_.interval);
}

void Application::startDevice() {
    if (settings_.model != QLatin1String("EASY")) {
        // The other models' drivers do not exist on this system.
        failDeviceStart();
        return;
    }
    window_.setStatusCaption(
        TranslateCaption(settings_.language, QStringLiteral("Cercant la tauleta...")));
    connect(&easy_, &EasyTablet::startFinished, this, &Application::onDeviceStartFinished,
            Qt::UniqueConnection);
    easy_.start(serialDevicePath(settings_));
}

void Application::onDeviceStartFinished(bool ok, const QString& message) {
    if (!ok) {
        failDeviceStart();
        if (!message.isEmpty())
            setStatus(message);
        return;
    }
    devicePresent_ = true;
    portName_ = settings_.portIndex != PortIndex::AutoDetect ? portCaption(settings_.portIndex)
                                                             : easy_.portPath();
    dispatcher_->setDevice(&easySource_);
    dispatcher_->setDevicePresent(true);
    window_.setStatusCaption(QString());
    SetTabletActive(true);
    if (openedFromCommandLine_)
        window_.showMinimized();
    emit deviceStarted(true);
}

void Application::failDeviceStart() {
    devicePresent_ = false;
    portName_.clear();
    dispatcher_->setDevice(&noDevice_);
    dispatcher_->setDevicePresent(false);
    const QString text = Message(settings_.language, 113);
    window_.setTabletState(false, text);
    showNotice(&window_, settings_.language, text);
    emit deviceStarted(false);
}

void Application::openFromCommandLine() {
    const QStringList rest = arguments_;
    if (rest.isEmpty())
        return;
    const QString& path = rest.first();
    const qsizetype slash = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
    if (slash >= 0)
        actionState_.WorkingFolder = path.left(slash);
    openedFromCommandLine_ = true;
    const QString folder = actionState_.WorkingFolder;
    document_->open(path.toUpper());
    // A Template named on the command line keeps the folder it was named from.
    actionState_.WorkingFolder = folder;
    activateTarget();
}

void Application::SetTabletActive(bool active) {
    tabletActive_ = active && devicePresent_;
    window_.setTabletState(
        tabletActive_,
        !devicePresent_ ? QString()
        : tabletActive_
            ? TranslateCaption(settings_.language, QStringLiteral("Tauleta activa a ")) + portName_
            : TranslateCaption(settings_.language, QStringLiteral("Tauleta Inactiva a ")) +
                  portName_);
    updateTimer1();
}

// Timer1 polls while the tablet is on, and while the virtual tablet is shown so
// that its clicks are dispatched even without a device.
void Application::updateTimer1() {
    if (tabletActive_ || virtualTablet_.isVisible())
        timer1_.start();
    else
        timer1_.stop();
}

void Application::wireWindow() {
    connect(&window_, &MainWindow::tabletButtonClicked, this,
            [this] { SetTabletActive(!tabletActive_); });
    connect(&window_, &MainWindow::languageChosen, this, &Application::chooseLanguage);
    connect(&window_, &MainWindow::soundToggled, this, [this](bool on) {
        template_.SoundActive = on ? -1 : 0;
        template_.Modified = true;
    });
    connect(&window_, &MainWindow::virtualTabletToggled, this, &Application::showVirtualTablet);
    connect(&window_, &MainWindow::activateTargetRequested, this, &Application::activateTarget);
    connect(&window_, &MainWindow::quitRequested, this, [this] { quit(true); });
    connect(&window_, &MainWindow::propertiesRequested, this, &Application::editProperties);
    connect(&window_, &MainWindow::exportSheetRequested, this, [this] {
        SheetExport::exportWithDialog(&window_, template_, settings_.language, &exportOptions_);
    });
    connect(&window_, &MainWindow::thumbnailRequested, this, [this] {
        SheetExport::saveThumbnailWithDialog(&window_, template_, settings_.language);
    });
    connect(&window_, &MainWindow::aboutRequested, this, [this] {
        QMessageBox box(QMessageBox::Information, Message(settings_.language, 7),
                        Message(settings_.language, 6), QMessageBox::NoButton, &window_);
        box.addButton(TranslateCaption(settings_.language, QStringLiteral("Acceptar")),
                      QMessageBox::AcceptRole);
        box.exec();
    });
    connect(&virtualTablet_, &VirtualTablet::pressed, dispatcher_.get(),
            &PressDispatcher::setVirtualPress);
    connect(&virtualTablet_, &VirtualTablet::visibilityChanged, this, [this](bool shown) {
        dispatcher_->setVirtualTabletShown(shown);
        window_.setVirtualTabletChecked(shown);
        updateTimer1();
    });
    connect(dispatcher_.get(), &PressDispatcher::virtualPressPending, &virtualTablet_,
            &VirtualTablet::showBusy);
    connect(dispatcher_.get(), &PressDispatcher::refocusTargetRequested, this, [this] {
        if (actionState_.TargetWindow != kNoWindow &&
            windows_.activeWindow() != actionState_.TargetWindow)
            windows_.activate(actionState_.TargetWindow);
    });
    connect(dispatcher_.get(), &PressDispatcher::problem, this, &Application::setStatus);
    connect(&easy_, &EasyTablet::positionArrived, this, [this](PressPoint position) {
        if (tabletActive_)
            dispatcher_->deviceReadingArrived(EasyDeviceSource::reading(position));
    });
    connect(&easy_, &EasyTablet::statusMessage, this, &Application::setStatus);
    // A lost tablet must not go on saying it is active.
    connect(&easy_, &EasyTablet::portClosed, this, [this] { SetTabletActive(false); });
    connect(&easy_, &EasyTablet::beepRequested, this, [] { QApplication::beep(); });
}

void Application::wireEditor() {
    EditorController& editor = *editor_;
    editor.bindActions(window_.editorActions());
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
    connect(runner_.get(), &ActionRunner::pendingPageSet, this, [this](int page) {
        actionState_.pendingPage.reset();
        editor_->areas().showPage(page);
    });
    connect(runner_.get(), &ActionRunner::openTemplateRequested, document_.get(),
            &DocumentController::openFile);
    connect(runner_.get(), &ActionRunner::closeRequested, this, [this] { quit(false); });
}

void Application::translate() {
    window_.translate(settings_.language);
    translateAllWindows(settings_.language);
    editor_->retranslate();
    document_->refreshTitle();
    SetTabletActive(tabletActive_);
}

void Application::chooseLanguage(Language language) {
    settings_.language = language;
    QString error;
    if (!writeLanguage(PrivateProfile(settingsFilePath(homeFolder_)), language, &error))
        setStatus(error);
    easy_.setLanguage(language);
    runner_->setLanguage(language);
    translate();
}

// The properties dialog edits the header; its default folder is the working folder.
void Application::editProperties() {
    const Template before = template_;
    if (!PlantForm::edit(&window_, template_, windows_, catalogue_, settings_.language,
                         &actionState_.WorkingFolder))
        return;
    editor_->keepForUndo(before);
    editor_->refresh();
    document_->refreshTitle();
}

// The virtual tablet shows the pupil's sheet: the Areas without the editor's marks.
void Application::refreshVirtualTablet() {
    QList<SheetArea> areas = editor_->sheetAreas();
    for (SheetArea& area : areas)
        area.selected = false;
    SheetView* sheet = virtualTablet_.sheet();
    sheet->setPicture(editor_->sheetPicture());
    sheet->setAreas(areas);
    window_.setSoundChecked(template_.SoundActive != 0);
}

void Application::activateTarget() {
    const QString title = targetTitle();
    if (title.isEmpty() || title == QLatin1String("|"))
        return;
    if (const WindowId window = windows_.findByTitle(title); window != kNoWindow) {
        windows_.activate(window);
        actionState_.TargetWindow = window;
    }
}

// The Template's target title, else the title of the last window that had the focus.
QString Application::targetTitle() const {
    if (!template_.TxFinestra.isEmpty())
        return template_.TxFinestra;
    if (actionState_.TargetWindow == kNoWindow)
        return {};
    return const_cast<X11WindowSystem&>(windows_).title(actionState_.TargetWindow);
}

bool Application::isOwnWindow(WindowId window) const {
    for (const QWidget* widget : QApplication::topLevelWidgets())
        if (widget->internalWinId() == window)
            return true;
    return false;
}

void Application::showVirtualTablet(bool shown) {
    if (shown)
        virtualTablet_.show();
    else
        virtualTablet_.hide();
}

void Application::setStatus(const QString& text) {
    window_.setStatusCaption(text);
}

// Quitting asks about unsaved changes first; a TANCAR command cannot be taken back.
void Application::quit(bool canCancel) {
    if (document_->mayDiscardChanges(canCancel))
        closeProgram();
}

// The closing routine: the device stops, then the program ends.
void Application::closeProgram() {
    timer1_.stop();
    timer2_.stop();
    easy_.stop();
    virtualTablet_.hide();
    window_.closeForGood();
    QApplication::quit();
}

} // namespace mervak
