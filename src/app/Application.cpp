#include "app/Application.h"

#include "action/SendKeysParser.h"
#include "devices/QtSerialLink.h"
#include "editor/AreaSelection.h"
#include "platform/Language.h"
#include "platform/PathResolver.h"
#include "template/AreaHitTest.h"
#include "template/TemplateFile.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
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
    wireWindow();
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
    window_.setWindowTitle(windowTitle(template_));
    refreshSheet();
    window_.show();
    startDevice();
    openFromCommandLine();
    timer2_.start(kTargetTickMs);
    return true;
}

void Application::readConfiguration() {
    settings_ = readSettings(PrivateProfile(settingsFilePath(homeFolder_)));
    easy_.setLanguage(settings_.language);
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
    auto* box = new QMessageBox(QMessageBox::NoIcon, QStringLiteral("MERVAK"), text,
                                QMessageBox::Ok, &window_);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
    emit deviceStarted(false);
}

void Application::openFromCommandLine() {
    const QStringList rest = arguments_;
    if (rest.isEmpty())
        return;
    const QString path = rest.first();
    const qsizetype slash = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
    if (slash >= 0)
        actionState_.WorkingFolder = path.left(slash);
    openedFromCommandLine_ = true;
    openTemplate(path.toUpper());
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
    connect(&window_, &MainWindow::soundToggled, this,
            [this](bool on) { template_.SoundActive = on ? -1 : 0; });
    connect(&window_, &MainWindow::virtualTabletToggled, this, &Application::showVirtualTablet);
    connect(&window_, &MainWindow::activateTargetRequested, this, &Application::activateTarget);
    connect(&window_, &MainWindow::newRequested, this, &Application::newTemplate);
    connect(&window_, &MainWindow::openRequested, this, &Application::openWithDialog);
    connect(&window_, &MainWindow::saveRequested, this, [this] { saveWithDialog(false); });
    connect(&window_, &MainWindow::saveAsRequested, this, [this] { saveWithDialog(true); });
    connect(&window_, &MainWindow::quitRequested, this, &Application::closeProgram);
    connect(&window_, &MainWindow::previousPageRequested, this,
            [this] { showPage(template_.CurrentPage - 1); });
    connect(&window_, &MainWindow::nextPageRequested, this,
            [this] { showPage(template_.CurrentPage + 1); });
    connect(&window_, &MainWindow::aboutRequested, this, [this] {
        QMessageBox::about(&window_, Message(settings_.language, 7),
                           Message(settings_.language, 6));
    });
    connect(window_.sheet(), &SheetView::pressed, this, [this](QPointF point) {
        const int16_t x = roundToInt16(point.x());
        const int16_t y = roundToInt16(point.y());
        dispatcher_->DispatchPress(x, y);
        pickArea(template_, FindArea(template_, x, y).index);
        refreshSheet();
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
    connect(&easy_, &EasyTablet::beepRequested, this, [] { QApplication::beep(); });
}

void Application::wireRunner() {
    connect(runner_.get(), &ActionRunner::problem, this, &Application::setStatus);
    connect(runner_.get(), &ActionRunner::pendingPageSet, this, [this](int page) {
        actionState_.pendingPage.reset();
        showPage(page);
    });
    connect(runner_.get(), &ActionRunner::openTemplateRequested, this, &Application::openTemplate);
    connect(runner_.get(), &ActionRunner::closeRequested, this, &Application::closeProgram);
}

void Application::translate() {
    window_.translate(settings_.language);
    SetTabletActive(tabletActive_);
}

void Application::chooseLanguage(Language language) {
    settings_.language = language;
    QString error;
    if (!writeLanguage(PrivateProfile(settingsFilePath(homeFolder_)), language, &error))
        setStatus(error);
    easy_.setLanguage(language);
    translate();
}

void Application::refreshSheet() {
    QList<SheetArea> areas;
    for (const int16_t index : template_.areasOfPage(template_.CurrentPage)) {
        const Area& area = template_.area(index);
        areas.append({area.X0, area.Y0, area.X1, area.Y1,
                      SendKeysParser::PlainKeys(area.ActionText), index == template_.SelectedArea});
    }
    const QString folder = QFileInfo(template_.TemplateFileName).absolutePath();
    const QImage picture = template_.FitxGraf.isEmpty()
                               ? QImage()
                               : QImage(resolveStoredPath(template_.FitxGraf, folder));
    for (SheetView* view : {window_.sheet(), virtualTablet_.sheet()}) {
        view->setPicture(picture);
        view->setAreas(areas);
    }
    window_.setPageCounter(counterTexts(template_).MsgPagina);
    window_.setSoundChecked(template_.SoundActive != 0);
}

void Application::showPage(int page) {
    if (page < 1 || page > template_.PageCount || page == template_.CurrentPage)
        return;
    template_.CurrentPage = static_cast<int16_t>(page);
    template_.refreshPageAreaCount();
    SelectArea(template_, 0);
    refreshSheet();
}

void Application::openTemplate(const QString& path) {
    const OpenOutcome outcome = mervak::openTemplate(template_, path, actionState_.WorkingFolder);
    if (outcome.error)
        showMessage(outcome.error->text(settings_.language), true);
    else if (outcome.warning)
        showMessage(outcome.warning->text(settings_.language));
    window_.setWindowTitle(windowTitle(template_));
    refreshSheet();
}

void Application::openWithDialog() {
    const QString path = QFileDialog::getOpenFileName(
        &window_, QStringLiteral("Carregar el fitxer de plantilla"), actionState_.WorkingFolder,
        QStringLiteral("Tauleta Windows (*.mvw *.MVW);;Tauleta MS-DOS (*.mvd *.MVD)"));
    if (!path.isEmpty())
        openTemplate(path);
}

void Application::saveWithDialog(bool saveAs) {
    QFileDialog dialog(&window_, QStringLiteral("Enregistrar el fitxer de plantilla"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(saveAs ? QStringLiteral("Plantilles de tauleta Windows (*.mvw);;"
                                                 "Plantilles de tauleta MS-DOS (*.mvd)")
                                : QStringLiteral("Teclat pantalla Windows (*.mvw)"));
    dialog.setDefaultSuffix(saveAs ? QStringLiteral("MVW") : QStringLiteral("mvw"));
    if (!template_.isUntitled())
        dialog.selectFile(template_.TemplateFileName);
    else
        dialog.setDirectory(actionState_.WorkingFolder);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().first();
    const SaveOutcome outcome =
        saveAs ? saveTemplateAs(template_, path) : saveTemplate(template_, path);
    if (outcome.error)
        showMessage(outcome.error->text(settings_.language), true);
    window_.setWindowTitle(windowTitle(template_));
}

void Application::newTemplate() {
    template_.NewTemplate();
    window_.setWindowTitle(windowTitle(template_));
    refreshSheet();
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

void Application::showMessage(const QString& text, bool critical) {
    auto* box = new QMessageBox(critical ? QMessageBox::Critical : QMessageBox::Warning,
                                QStringLiteral("MERVAK"), text, QMessageBox::Ok, &window_);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void Application::setStatus(const QString& text) {
    window_.setStatusCaption(text);
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
