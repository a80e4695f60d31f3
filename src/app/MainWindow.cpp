#include "app/MainWindow.h"

#include "editor/RecentFiles.h"
#include "editor/widgets/Captions.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace mervak {

namespace {

// A Template file the window takes when dropped on it.
QString droppedTemplate(const QMimeData* data) {
    if (!data->hasUrls())
        return {};
    for (const QUrl& url : data->urls()) {
        const QString path = url.toLocalFile();
        const QString suffix = QFileInfo(path).suffix().toUpper();
        if (!path.isEmpty() && (suffix == QLatin1String("MVW") || suffix == QLatin1String("MVD")))
            return path;
    }
    return {};
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), pane_(new SheetPane), panel_(new AreaPanel(Language::Catalan)),
      frame_(new PageFrame) {
    auto* central = new QWidget;
    auto* layout = new QHBoxLayout(central);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(8);
    layout->addWidget(pane_, 1);
    layout->addWidget(panel_);
    panel_->addBelowPages(frame_);
    setCentralWidget(central);
    buildMenus();
    buildToolBar();
    buildStatusArea();
    setAcceptDrops(true);
    resize(940, 720);
}

QAction* MainWindow::addCaptioned(QMenu* menu, const QString& catalan,
                                  const QKeySequence& shortcut) {
    QAction* action = menu->addAction(QString());
    setCaption(action, catalan);
    if (!shortcut.isEmpty())
        action->setShortcut(shortcut);
    return action;
}

QMenu* MainWindow::addCaptionedMenu(const QString& catalan) {
    QMenu* menu = menuBar()->addMenu(QString());
    setCaption(menu, catalan);
    return menu;
}

void MainWindow::buildMenus() {
    buildFilesMenu();
    buildAreaMenu();
    buildPageMenu();
    buildTemplateMenus();
    buildViewMenu();
    buildOptionsMenu();
    QMenu* help = addCaptionedMenu(QStringLiteral("&Ajuda"));
    connect(addCaptioned(help, QStringLiteral("&Quant al Mervak...")), &QAction::triggered, this,
            &MainWindow::aboutRequested);
}

void MainWindow::buildFilesMenu() {
    files_ = addCaptionedMenu(QStringLiteral("&Fitxers"));
    editingMenus_.append(files_);
    connect(addCaptioned(files_, QStringLiteral("&Nou"), QKeySequence::New), &QAction::triggered,
            this, &MainWindow::newRequested);
    connect(addCaptioned(files_, QStringLiteral("&Obrir ..."), QKeySequence::Open),
            &QAction::triggered, this, &MainWindow::openRequested);
    recent_ = files_->addMenu(QString());
    setCaption(recent_, QStringLiteral("Fitxers &recents"));
    recent_->setEnabled(false);
    connect(addCaptioned(files_, QStringLiteral("&Desar"), QKeySequence::Save), &QAction::triggered,
            this, &MainWindow::saveRequested);
    connect(addCaptioned(files_, QStringLiteral("&Desar ..."), QKeySequence::SaveAs),
            &QAction::triggered, this, &MainWindow::saveAsRequested);
    files_->addSeparator();
    QAction* quit = addCaptioned(files_, QStringLiteral("&Sortir"), QKeySequence::Quit);
    quit->setObjectName(QStringLiteral("Sortir"));
    connect(quit, &QAction::triggered, this, &MainWindow::close);
}

void MainWindow::buildAreaMenu() {
    QMenu* area = addCaptionedMenu(QStringLiteral("&Àrea"));
    editingMenus_.append(area);
    editor_.undo = addCaptioned(area, QStringLiteral("&Desfer"), QKeySequence::Undo);
    area->addSeparator();
    editor_.draw =
        addCaptioned(area, QStringLiteral("&Dibuixar"), QKeySequence(Qt::CTRL | Qt::Key_D));
    editor_.draw->setCheckable(true);
    editor_.addArea = addCaptioned(area, QStringLiteral("&Afegir"), QKeySequence(Qt::Key_Insert));
    editor_.deleteArea = addCaptioned(area, QStringLiteral("&Eliminar"), QKeySequence::Delete);
    editor_.maximumArea = addCaptioned(area, QStringLiteral("Àrea &Màxima"));
    editor_.subdivide = addCaptioned(area, QStringLiteral("&Subdividir"));
    editor_.chooseSymbol = addCaptioned(area, QStringLiteral("Sím&bol de la biblioteca..."),
                                        QKeySequence(Qt::CTRL | Qt::Key_B));
    area->addSeparator();
    editor_.previousArea =
        addCaptioned(area, QStringLiteral("Àrea anterior"), QKeySequence(Qt::CTRL | Qt::Key_Left));
    editor_.nextArea =
        addCaptioned(area, QStringLiteral("Àrea següent"), QKeySequence(Qt::CTRL | Qt::Key_Right));
}

void MainWindow::buildPageMenu() {
    QMenu* page = addCaptionedMenu(QStringLiteral("&Pàgina"));
    editingMenus_.append(page);
    editor_.previousPage =
        addCaptioned(page, QStringLiteral("Pàgina anterior"), QKeySequence(Qt::Key_PageUp));
    editor_.nextPage =
        addCaptioned(page, QStringLiteral("Pàgina següent"), QKeySequence(Qt::Key_PageDown));
    page->addSeparator();
    editor_.addPage = addCaptioned(page, QStringLiteral("&Afegir"));
    editor_.insertPageBefore = addCaptioned(page, QStringLiteral("Inserir abans"));
    editor_.insertPageAfter = addCaptioned(page, QStringLiteral("Inserir després"));
    editor_.deletePage = addCaptioned(page, QStringLiteral("&Eliminar"));
    editor_.cellGrid = addCaptioned(page, QStringLiteral("Graella de cel·les..."));
    page->addSeparator();
    QMenu* models = page->addMenu(QString());
    setCaption(models, QStringLiteral("Models de pagina"));
    editor_.savePageModel = addCaptioned(models, QStringLiteral("&Desar"));
    editor_.pastePageModel = addCaptioned(models, QStringLiteral("En&ganxar"));
}

void MainWindow::buildTemplateMenus() {
    QMenu* plantilla = addCaptionedMenu(QStringLiteral("&Plantilla"));
    connect(addCaptioned(plantilla, QStringLiteral("&Dades inicials")), &QAction::triggered, this,
            &MainWindow::propertiesRequested);
    sound_ = addCaptioned(plantilla, QStringLiteral("&So actiu"));
    sound_->setCheckable(true);
    connect(sound_, &QAction::toggled, this, &MainWindow::soundToggled);
    trackerCalibration_ = addCaptioned(plantilla, QStringLiteral("Calibrar Vistal"));
    trackerCalibration_->setVisible(false);
    connect(trackerCalibration_, &QAction::triggered, this,
            &MainWindow::trackerCalibrationRequested);
    tabletTest_ = addCaptioned(plantilla, QStringLiteral("&Test de la tauleta"));
    connect(tabletTest_, &QAction::triggered, this, &MainWindow::tabletTestRequested);
    QMenu* sheet = addCaptionedMenu(QStringLiteral("&Làmina"));
    editingMenus_.append({plantilla, sheet});
    connect(addCaptioned(sheet, QStringLiteral("Desar &làmina"), QKeySequence::Print),
            &QAction::triggered, this, &MainWindow::exportSheetRequested);
    connect(addCaptioned(sheet, QStringLiteral("Desar mini-làmina")), &QAction::triggered, this,
            &MainWindow::thumbnailRequested);
    connect(addCaptioned(sheet, QStringLiteral("Imprimir...")), &QAction::triggered, this,
            &MainWindow::printSheetRequested);
    QAction* sheetIcon = addCaptioned(sheet, QStringLiteral("Icona làmina"));
    sheetIcon->setCheckable(true);
    connect(sheetIcon, &QAction::toggled, this, &MainWindow::sheetIconToggled);
    editor_.wordSheet = addCaptioned(sheet, QStringLiteral("Làmina de &paraules..."));
}

void MainWindow::buildViewMenu() {
    QMenu* view = addCaptionedMenu(QStringLiteral("&Veure"));
    editor_.zoomToFit = addCaptioned(view, QStringLiteral("Ajustar a la finestra"),
                                     QKeySequence(Qt::CTRL | Qt::Key_0));
    editor_.zoomIn = addCaptioned(view, QStringLiteral("Ampliar"), QKeySequence::ZoomIn);
    editor_.zoomOut = addCaptioned(view, QStringLiteral("Reduir"), QKeySequence::ZoomOut);
}

void MainWindow::buildOptionsMenu() {
    QMenu* options = addCaptionedMenu(QStringLiteral("&Opcions"));
    virtualTablet_ =
        addCaptioned(options, QStringLiteral("Teclat &auxiliar"), QKeySequence(Qt::Key_F12));
    virtualTablet_->setCheckable(true);
    connect(virtualTablet_, &QAction::toggled, this, &MainWindow::virtualTabletToggled);
    connect(addCaptioned(options, QStringLiteral("&Activar aplicació")), &QAction::triggered, this,
            &MainWindow::activateTargetRequested);
    startAtLogin_ = addCaptioned(options, QStringLiteral("&Iniciar amb la sessió"));
    startAtLogin_->setCheckable(true);
    connect(startAtLogin_, &QAction::toggled, this, &MainWindow::startAtLoginToggled);
    options->addSeparator();
    // The language names read the same in either language.
    auto* languages = new QActionGroup(this);
    catalan_ = addCaptioned(options, QStringLiteral("Català"));
    spanish_ = addCaptioned(options, QStringLiteral("Español"));
    for (QAction* action : {catalan_, spanish_}) {
        action->setCheckable(true);
        languages->addAction(action);
    }
    connect(catalan_, &QAction::triggered, this,
            [this] { emit languageChosen(Language::Catalan); });
    connect(spanish_, &QAction::triggered, this,
            [this] { emit languageChosen(Language::Spanish); });
}

void MainWindow::buildToolBar() {
    QToolBar* bar = addToolBar(QString());
    toolBar_ = bar;
    bar->setObjectName(QStringLiteral("EditorToolBar"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->addAction(editor_.draw);
    bar->addSeparator();
    for (QAction* action : {editor_.addArea, editor_.deleteArea, editor_.maximumArea,
                            editor_.subdivide, editor_.undo})
        bar->addAction(action);
    bar->addSeparator();
    for (QAction* action : {editor_.zoomOut, editor_.zoomToFit, editor_.zoomIn})
        bar->addAction(action);
}

void MainWindow::buildStatusArea() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(2, 2, 2, 2);
    tabletButton_ = new QToolButton;
    tabletButton_->setObjectName(QStringLiteral("BotoTauleta"));
    tabletButton_->setIconSize(QSize(40, 40));
    tabletButton_->setFocusPolicy(Qt::NoFocus);
    connect(tabletButton_, &QToolButton::clicked, this, &MainWindow::tabletButtonClicked);
    tabletButton_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tabletButton_, &QToolButton::customContextMenuRequested, this, [this](QPoint at) {
        QMenu menu;
        menu.addAction(tabletTest_);
        menu.exec(tabletButton_->mapToGlobal(at));
    });
    modelPicture_ = new QLabel;
    tabletCaption_ = new QLabel;
    tabletCaption_->setObjectName(QStringLiteral("MsgTaulAct"));
    statusCaption_ = new QLabel;
    statusCaption_->setObjectName(QStringLiteral("Label1"));
    row->addWidget(tabletButton_);
    row->addWidget(modelPicture_);
    auto* captions = new QVBoxLayout;
    captions->addWidget(tabletCaption_);
    captions->addWidget(statusCaption_);
    row->addLayout(captions, 1);
    statusBar()->addWidget(bar, 1);
}

void MainWindow::translate(Language language) {
    TranslateForm(this, language);
    catalan_->setChecked(language == Language::Catalan);
    spanish_->setChecked(language == Language::Spanish);
}

void MainWindow::setTabletState(bool active, const QString& caption) {
    tabletButton_->setIcon(QIcon(active ? QStringLiteral(":/icones/tauleta2.png")
                                        : QStringLiteral(":/icones/tauleta1.png")));
    tabletCaption_->setText(caption);
}

void MainWindow::setStatusCaption(const QString& text) {
    statusCaption_->setText(text);
}

void MainWindow::setModelPicture(const QPixmap& picture) {
    modelPicture_->setPixmap(picture.scaledToHeight(40, Qt::SmoothTransformation));
}

void MainWindow::setSoundChecked(bool checked) {
    const QSignalBlocker quiet(sound_);
    sound_->setChecked(checked);
}

void MainWindow::setVirtualTabletChecked(bool checked) {
    const QSignalBlocker quiet(virtualTablet_);
    virtualTablet_->setChecked(checked);
}

// Each entry's tool tip is its folder.
void MainWindow::setRecentFiles(const QStringList& paths) {
    recent_->clear();
    recent_->setToolTipsVisible(true);
    const QStringList labels = recentFileLabels(paths);
    for (int i = 0; i < paths.size(); ++i) {
        const QString& path = paths[i];
        QAction* action = recent_->addAction(QStringLiteral("&%1 %2").arg(i + 1).arg(labels[i]));
        action->setToolTip(QDir::toNativeSeparators(QFileInfo(path).absolutePath()));
        action->setStatusTip(QDir::toNativeSeparators(path));
        // The thumbnail "Desar mini-làmina" saved beside the file, when there is one.
        const QFileInfo file(path);
        const QString thumbnail = file.dir().filePath(file.completeBaseName() + "-mini.png");
        if (QFileInfo::exists(thumbnail))
            action->setIcon(QIcon(thumbnail));
        connect(action, &QAction::triggered, this, [this, path] { emit recentFileChosen(path); });
    }
    recent_->setEnabled(!paths.isEmpty());
}

void MainWindow::setStartAtLoginChecked(bool checked) {
    const QSignalBlocker quiet(startAtLogin_);
    startAtLogin_->setChecked(checked);
}

void MainWindow::setTrackerCalibrationShown(bool shown) {
    trackerCalibration_->setVisible(shown);
}

namespace {

// A hidden action has no shortcut either, even when a controller enables it later.
void hideWithSubmenus(QMenu* menu) {
    for (QAction* action : menu->actions()) {
        if (QMenu* submenu = action->menu())
            hideWithSubmenus(submenu);
        action->setVisible(false);
    }
    menu->menuAction()->setVisible(false);
}

} // namespace

void MainWindow::lock() {
    for (QMenu* menu : editingMenus_)
        hideWithSubmenus(menu);
    startAtLogin_->setVisible(false);
    tabletButton_->setContextMenuPolicy(Qt::NoContextMenu);
    toolBar_->hide();
    toolBar_->toggleViewAction()->setVisible(false);
    panel_->hide();
    pane_->hideCoordinateBars();
    setAcceptDrops(false);
}

void MainWindow::closeForGood() {
    closing_ = true;
    close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (closing_) {
        event->accept();
        return;
    }
    event->ignore();
    emit quitRequested();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedTemplate(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QString path = droppedTemplate(event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    emit templateDropped(path);
}

} // namespace mervak
