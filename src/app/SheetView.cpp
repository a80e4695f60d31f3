#include "app/SheetView.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace mervak {

SheetView::SheetView(QWidget* parent) : QWidget(parent) {
    setMinimumSize(120, 120);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void SheetView::setPicture(const QImage& picture) {
    picture_ = picture;
    update();
}

void SheetView::setAreas(const QList<SheetArea>& areas) {
    areas_ = areas;
    update();
}

void SheetView::setBanner(const QString& text) {
    banner_ = text;
    update();
}

QRectF SheetView::sheetRect() const {
    const QSizeF shape = picture_.isNull() ? QSizeF(1, 1) : QSizeF(picture_.size());
    const QSizeF fitted = shape.scaled(QSizeF(size()), Qt::KeepAspectRatio);
    return {QPointF((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), fitted};
}

QPointF SheetView::toSheetUnits(const QPointF& widgetPoint) const {
    const QRectF sheet = sheetRect();
    return {(widgetPoint.x() - sheet.left()) * kSheetUnits / sheet.width(),
            (sheet.bottom() - widgetPoint.y()) * kSheetUnits / sheet.height()};
}

QRectF SheetView::toWidget(const SheetArea& area) const {
    const QRectF sheet = sheetRect();
    const double sx = sheet.width() / kSheetUnits;
    const double sy = sheet.height() / kSheetUnits;
    const auto [left, right] = std::minmax(area.x0, area.x1);
    const auto [bottom, top] = std::minmax(area.y0, area.y1);
    return QRectF(sheet.left() + left * sx, sheet.bottom() - top * sy, (right - left) * sx,
                  (top - bottom) * sy);
}

void SheetView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    const QRectF sheet = sheetRect();
    if (picture_.isNull())
        painter.fillRect(sheet, Qt::white);
    else
        painter.drawImage(sheet, picture_);
    for (const SheetArea& area : areas_)
        paintArea(painter, area);
    if (!banner_.isEmpty()) {
        painter.setPen(Qt::darkGray);
        painter.drawText(sheet, Qt::AlignCenter | Qt::TextWordWrap, banner_);
    }
}

void SheetView::paintArea(QPainter& painter, const SheetArea& area) const {
    const QRectF box = toWidget(area);
    painter.setPen(QPen(area.selected ? Qt::red : Qt::blue, area.selected ? 3 : 1));
    painter.setBrush(area.selected ? QColor(255, 0, 0, 40) : QColor(0, 0, 255, 20));
    painter.drawRect(box);
    if (!area.label.isEmpty()) {
        painter.setPen(Qt::black);
        painter.drawText(box.adjusted(3, 2, -3, -2),
                         Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, area.label);
    }
}

void SheetView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit pressed(toSheetUnits(event->position()));
}

void SheetView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton)
        emit moved(toSheetUnits(event->position()));
}

void SheetView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit released(toSheetUnits(event->position()));
}

} // namespace mervak
