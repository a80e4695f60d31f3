#include "app/WindowGrip.h"

#include <QMouseEvent>
#include <QPainter>

namespace mervak {

namespace {

// Smaller, the sheet's Areas could no longer be told apart.
constexpr QSize kSmallestWindow(120, 90);
constexpr int kCornerSide = 16;
// A tall bar holds on to a quick hand: where the compositor keeps no hold on the
// cursor for the window, a cursor that leaves it mid-drag stops the move.
constexpr int kBarPadding = 12;

} // namespace

WindowGrip::WindowGrip(Role role, QWidget* parent) : QWidget(parent), role_(role) {
    setCursor(role == Role::Move ? Qt::SizeAllCursor : Qt::SizeFDiagCursor);
    setFocusPolicy(Qt::NoFocus);
    if (role == Role::Resize)
        setFixedSize(kCornerSide, kCornerSide);
    else
        setFixedHeight(fontMetrics().height() + kBarPadding);
}

void WindowGrip::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    dragging_ = true;
    pressedAt_ = event->globalPosition().toPoint();
    startPlace_ = QRect(window()->pos(), window()->size());
}

void WindowGrip::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_)
        return;
    const QPoint moved = event->globalPosition().toPoint() - pressedAt_;
    if (role_ == Role::Move)
        window()->move(startPlace_.topLeft() + moved);
    else
        window()->resize(
            (startPlace_.size() + QSize(moved.x(), moved.y())).expandedTo(kSmallestWindow));
}

void WindowGrip::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        dragging_ = false;
}

void WindowGrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    if (role_ == Role::Resize) {
        for (int offset = 4; offset < kCornerSide; offset += 4)
            painter.drawLine(offset, kCornerSide - 1, kCornerSide - 1, offset);
        return;
    }
    painter.fillRect(rect(), palette().color(QPalette::Highlight));
    painter.setPen(palette().color(QPalette::HighlightedText));
    const QRect text = rect().adjusted(kBarPadding, 0, -kBarPadding, 0);
    painter.drawText(
        text, Qt::AlignVCenter | Qt::AlignLeft,
        fontMetrics().elidedText(window()->windowTitle(), Qt::ElideRight, text.width()));
}

} // namespace mervak
