#include "app/VirtualTablet.h"

#include "app/WindowGrip.h"

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

namespace mervak {

namespace {

constexpr int kSide = 360;
// A third of the screen's width: smaller, a pupil's finger or mouse misses.
constexpr int kScreenWidthShare = 3;
// A stored place is used while this much of it is on the screen.
constexpr int kVisibleEnough = 80;
// Room for the window manager's title bar and borders, unknown before the
// window first shows.
constexpr int kFrameAllowance = 40;
// How long the window stays put before its place is kept.
constexpr int kPlaceSettleMs = 500;

// The window's size for a longest side, in the sheet's shape.
QSize shaped(int side, QSizeF sheet) {
    return sheet.isEmpty() ? QSize(side, side)
                           : sheet.scaled(QSizeF(side, side), Qt::KeepAspectRatio).toSize();
}

// The sheet's shape, a third of the screen wide, and never taller than `height`.
QSize usableSize(const QRect& screen, int height, QSizeF sheet) {
    const QSizeF shape = sheet.isEmpty() ? QSizeF(1, 1) : sheet;
    const int width = std::max(kSide, screen.width() / kScreenWidthShare);
    return shape.scaled(QSizeF(width, std::max(kSide / 2, height)), Qt::KeepAspectRatio).toSize();
}

// Where the tablet opens without a place of the user's: beside the main window
// when there is room, else in the lower right corner of `screen` (the room on
// the screen), below the main window's menus and toolbar, which end at
// `headerBottom`. `mainFrame` is the main window with its frame.
QRect defaultPlace(const QRect& screen, const QRect& mainFrame, int headerBottom, QSizeF sheet) {
    const int tallest = screen.height() - 2 * kFrameAllowance;
    const QSize size = usableSize(screen, tallest, sheet);
    const int roomBeside = screen.right() - mainFrame.right() - kFrameAllowance;
    if (roomBeside >= size.width())
        return {QPoint(mainFrame.right() + 1, std::max(screen.top(), mainFrame.top())), size};
    QRect place(QPoint(0, 0), size);
    place.moveBottomRight(screen.bottomRight() - QPoint(kFrameAllowance, kFrameAllowance));
    const bool besideHeader = place.left() > mainFrame.right() || place.right() < mainFrame.left();
    if (!besideHeader && place.top() <= headerBottom) {
        const int below = screen.bottom() - kFrameAllowance - headerBottom - kFrameAllowance;
        place.setSize(usableSize(screen, below, sheet));
        place.moveBottomRight(screen.bottomRight() - QPoint(kFrameAllowance, kFrameAllowance));
    }
    return place;
}

Qt::WindowFlags windowFlagsFor(VirtualTablet::Frame frame) {
    const Qt::WindowFlags flags =
        Qt::Tool | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint;
    return frame == VirtualTablet::Frame::Own ? flags | Qt::BypassWindowManagerHint : flags;
}

} // namespace

VirtualTablet::VirtualTablet(Frame frame, QWidget* parent)
    : QWidget(parent, windowFlagsFor(frame)), sheet_(new SheetView(this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    sheet_->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    if (frame == Frame::Own) {
        moveBar_ = new WindowGrip(WindowGrip::Role::Move, this);
        corner_ = new WindowGrip(WindowGrip::Role::Resize, this);
        layout->addWidget(moveBar_);
    }
    layout->addWidget(sheet_);
    resize(shaped(kSide, {270, 190}));
    // Kept as soon as the user stops moving it: the computer may be switched off
    // with the tablet still shown.
    placeSettling_.setSingleShot(true);
    placeSettling_.setInterval(kPlaceSettleMs);
    connect(&placeSettling_, &QTimer::timeout, this, &VirtualTablet::placeChosen);
    connect(sheet_, &SheetView::pressed, this, &VirtualTablet::pressed);
    sheet_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(sheet_, &SheetView::customContextMenuRequested, this, &VirtualTablet::showScreenMenu);
}

void VirtualTablet::setTemplateName(const QString& name, Language language) {
    language_ = language;
    setWindowTitle(TranslateCaption(language, QStringLiteral("Tauleta virtual")) +
                   QStringLiteral(" - ") + name);
    if (moveBar_ != nullptr)
        moveBar_->update();
}

void VirtualTablet::setFullScreenOn(QScreen* screen) {
    // Filling a screen, it can be neither moved nor resized.
    for (WindowGrip* grip : {moveBar_, corner_})
        if (grip != nullptr)
            grip->setVisible(screen == nullptr);
    if (!screen) {
        showNormal();
        if (!windowedPlace_.isNull()) {
            move(windowedPlace_.topLeft());
            resize(windowedPlace_.size());
        }
        windowedPlace_ = {};
        return;
    }
    if (!isFullScreen())
        windowedPlace_ = place();
    // The window moves to the screen first: full screen fills the screen it is on.
    if (windowHandle())
        windowHandle()->setScreen(screen);
    setGeometry(screen->geometry());
    showFullScreen();
}

// Each screen by its name and size, and the way back to a window.
void VirtualTablet::showScreenMenu(QPoint at) {
    QMenu menu;
    for (QScreen* screen : QGuiApplication::screens()) {
        const QString text =
            TranslateCaption(language_, QStringLiteral("Pantalla completa a %1 (%2×%3)"))
                .arg(screen->name())
                .arg(screen->geometry().width())
                .arg(screen->geometry().height());
        connect(menu.addAction(text), &QAction::triggered, this,
                [this, screen] { setFullScreenOn(screen); });
    }
    if (isFullScreen())
        connect(menu.addAction(TranslateCaption(language_, QStringLiteral("Tornar a la finestra"))),
                &QAction::triggered, this, [this] { setFullScreenOn(nullptr); });
    menu.exec(sheet_->mapToGlobal(at));
}

void VirtualTablet::showBusy(bool busy) {
    if (busy)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void VirtualTablet::showPointer(PressPoint pointer) {
    sheet_->setMarker(pointer == PressPoint{} ? std::nullopt
                                              : std::optional(QPointF(pointer.x, pointer.y)));
}

void VirtualTablet::showAt(const QRect& place, const QMainWindow& mainWindow, QSizeF sheetMm) {
    const QRect room = mainWindow.screen()->availableGeometry();
    const QRect seen = place.intersected(room);
    QRect chosen = place;
    if (place.isNull() || seen.width() < kVisibleEnough || seen.height() < kVisibleEnough) {
        const int headerBottom = mainWindow.centralWidget()->mapToGlobal(QPoint(0, 0)).y() - 1;
        chosen = defaultPlace(room, mainWindow.frameGeometry(), headerBottom, sheetMm);
    }
    // move() places the window manager's frame, resize() the inside.
    move(chosen.topLeft());
    resize(chosen.size());
    show();
}

QRect VirtualTablet::place() const {
    return isFullScreen() && !windowedPlace_.isNull() ? windowedPlace_ : QRect(pos(), size());
}

void VirtualTablet::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    emit visibilityChanged(true);
}

void VirtualTablet::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    emit visibilityChanged(false);
}

void VirtualTablet::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isVisible())
        placeSettling_.start();
    if (corner_ == nullptr)
        return;
    corner_->move(width() - corner_->width(), height() - corner_->height());
    corner_->raise();
}

void VirtualTablet::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (isVisible())
        placeSettling_.start();
}

} // namespace mervak
