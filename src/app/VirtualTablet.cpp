#include "app/VirtualTablet.h"

#include <QScreen>
#include <QVBoxLayout>

namespace mervak {

namespace {

constexpr int kSide = 360;
// Narrower than this beside the main window, the sheet is too small to press.
constexpr int kNarrowestBeside = 240;
// A stored place is used while this much of it is on the screen.
constexpr int kVisibleEnough = 80;
// Room for the window manager's title bar and borders, unknown before the
// window first shows.
constexpr int kFrameAllowance = 40;

// The window's size for a longest side, in the sheet's shape.
QSize shaped(int side, QSizeF sheet) {
    return sheet.isEmpty() ? QSize(side, side)
                           : sheet.scaled(QSizeF(side, side), Qt::KeepAspectRatio).toSize();
}

// Where the tablet opens without a place of the user's: beside the main window
// when there is room, else in the lower right corner of `screen` (the room on
// the screen), below the main window's menus and toolbar, which end at
// `headerBottom`. `mainFrame` is the main window with its frame.
QRect defaultPlace(const QRect& screen, const QRect& mainFrame, int headerBottom, QSizeF sheet) {
    const int roomBeside = screen.right() - mainFrame.right() - kFrameAllowance;
    if (roomBeside >= kNarrowestBeside) {
        const QSize size = shaped(std::min(kSide, roomBeside), sheet);
        return {QPoint(mainFrame.right() + 1, std::max(screen.top(), mainFrame.top())), size};
    }
    QRect place(QPoint(0, 0), shaped(kSide, sheet));
    place.moveBottomRight(screen.bottomRight() - QPoint(kFrameAllowance, kFrameAllowance));
    const bool besideHeader = place.left() > mainFrame.right() || place.right() < mainFrame.left();
    if (!besideHeader && place.top() <= headerBottom)
        place.moveTop(headerBottom + 1);
    return place;
}

} // namespace

VirtualTablet::VirtualTablet(QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint),
      sheet_(new SheetView(this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    sheet_->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(sheet_);
    resize(shaped(kSide, {270, 190}));
    connect(sheet_, &SheetView::pressed, this, &VirtualTablet::pressed);
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
    return {pos(), size()};
}

void VirtualTablet::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    emit visibilityChanged(true);
}

void VirtualTablet::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    emit visibilityChanged(false);
}

} // namespace mervak
