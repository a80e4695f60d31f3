#include "app/MainWindow.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

namespace mervak {

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), sheet_(new SheetView) {
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(sheet_, 1);
    setCentralWidget(central);
    buildMenus();
    buildStatusArea();
    resize(640, 640);
}

QAction* MainWindow::addCaptioned(QMenu* menu, const QString& catalan) {
    QAction* action = menu->addAction(catalan);
    captioned_.append({action, catalan});
    return action;
}

QMenu* MainWindow::addCaptionedMenu(const QString& catalan) {
    QMenu* menu = menuBar()->addMenu(catalan);
    captioned_.append({menu->menuAction(), catalan});
    return menu;
}

void MainWindow::buildMenus() {
    QMenu* files = addCaptionedMenu(QStringLiteral("&Fitxers"));
    connect(addCaptioned(files, QStringLiteral("&Nou")), &QAction::triggered, this,
            &MainWindow::newRequested);
    connect(addCaptioned(files, QStringLiteral("&Obrir ...")), &QAction::triggered, this,
            &MainWindow::openRequested);
    connect(addCaptioned(files, QStringLiteral("&Desar")), &QAction::triggered, this,
            &MainWindow::saveRequested);
    connect(addCaptioned(files, QStringLiteral("&Desar ...")), &QAction::triggered, this,
            &MainWindow::saveAsRequested);
    files->addSeparator();
    connect(addCaptioned(files, QStringLiteral("&Sortir")), &QAction::triggered, this,
            &MainWindow::close);

    QMenu* options = addCaptionedMenu(QStringLiteral("&Opcions"));
    sound_ = addCaptioned(options, QStringLiteral("&So actiu"));
    sound_->setCheckable(true);
    connect(sound_, &QAction::toggled, this, &MainWindow::soundToggled);
    virtualTablet_ = addCaptioned(options, QStringLiteral("Teclat &auxiliar"));
    virtualTablet_->setCheckable(true);
    virtualTablet_->setShortcut(QKeySequence(Qt::Key_F12));
    connect(virtualTablet_, &QAction::toggled, this, &MainWindow::virtualTabletToggled);
    connect(addCaptioned(options, QStringLiteral("&Activar aplicació")), &QAction::triggered, this,
            &MainWindow::activateTargetRequested);
    options->addSeparator();
    // The language names read the same in either language.
    auto* languages = new QActionGroup(this);
    catalan_ = options->addAction(QStringLiteral("Català"));
    spanish_ = options->addAction(QStringLiteral("Español"));
    for (QAction* action : {catalan_, spanish_}) {
        action->setCheckable(true);
        languages->addAction(action);
    }
    connect(catalan_, &QAction::triggered, this,
            [this] { emit languageChosen(Language::Catalan); });
    connect(spanish_, &QAction::triggered, this,
            [this] { emit languageChosen(Language::Spanish); });

    QMenu* help = addCaptionedMenu(QStringLiteral("&Ajuda"));
    connect(addCaptioned(help, QStringLiteral("&Quant al Mervak...")), &QAction::triggered, this,
            &MainWindow::aboutRequested);
}

void MainWindow::buildStatusArea() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(2, 2, 2, 2);
    tabletButton_ = new QToolButton;
    tabletButton_->setIconSize(QSize(40, 40));
    tabletButton_->setFocusPolicy(Qt::NoFocus);
    connect(tabletButton_, &QToolButton::clicked, this, &MainWindow::tabletButtonClicked);
    modelPicture_ = new QLabel;
    tabletCaption_ = new QLabel;
    statusCaption_ = new QLabel;
    previousPage_ = new QToolButton;
    previousPage_->setText(QStringLiteral("<"));
    captioned_.append({previousPage_, QStringLiteral("<")});
    nextPage_ = new QToolButton;
    nextPage_->setText(QStringLiteral(">"));
    pageCounter_ = new QLabel(QStringLiteral("0/0 pàgines"));
    connect(previousPage_, &QToolButton::clicked, this, &MainWindow::previousPageRequested);
    connect(nextPage_, &QToolButton::clicked, this, &MainWindow::nextPageRequested);
    row->addWidget(tabletButton_);
    row->addWidget(modelPicture_);
    auto* captions = new QVBoxLayout;
    captions->addWidget(tabletCaption_);
    captions->addWidget(statusCaption_);
    row->addLayout(captions, 1);
    row->addWidget(previousPage_);
    row->addWidget(pageCounter_);
    row->addWidget(nextPage_);
    statusBar()->addWidget(bar, 1);
}

void MainWindow::translate(Language language) {
    for (const auto& [object, catalan] : captioned_) {
        const QString caption = TranslateCaption(language, catalan);
        if (auto* action = qobject_cast<QAction*>(object))
            action->setText(caption);
        else if (auto* button = qobject_cast<QToolButton*>(object))
            button->setText(caption);
    }
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

void MainWindow::setPageCounter(const QString& text) {
    pageCounter_->setText(text);
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

} // namespace mervak
