#include "editor/widgets/SheetView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace mervak {

namespace {

constexpr double kGripSize = 7;
constexpr int kFastStep = 5;

const QColor kOutline(20, 70, 200);
const QColor kSelected(220, 30, 30);

} // namespace

SheetView::SheetView(QWidget* parent) : QWidget(parent) {
    setMinimumSize(120, 120);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void SheetView::setPicture(const QImage& picture) {
    picture_ = picture;
    update();
}

void SheetView::setSheetSize(QSizeF millimetres) {
    if (millimetres.isEmpty() || millimetres == sheetSize_)
        return;
    sheetSize_ = millimetres;
    update();
}

void SheetView::setAreas(const QList<SheetArea>& areas) {
    areas_ = areas;
    update();
}

void SheetView::setDrawing(const std::optional<SheetRect>& rect) {
    drawing_ = rect;
    update();
}

void SheetView::setMarker(const std::optional<QPointF>& sheetPoint) {
    if (sheetPoint == marker_)
        return;
    marker_ = sheetPoint;
    update();
}

QRectF SheetView::sheetRect() const {
    const QSizeF fitted = sheetSize_.scaled(QSizeF(size()), Qt::KeepAspectRatio);
    return {QPointF((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), fitted};
}

QPointF SheetView::toSheetUnits(const QPointF& widgetPoint) const {
    const QRectF sheet = sheetRect();
    return {(widgetPoint.x() - sheet.left()) * kSheetUnits / sheet.width(),
            (sheet.bottom() - widgetPoint.y()) * kSheetUnits / sheet.height()};
}

QRectF SheetView::toWidget(const SheetRect& rect) const {
    const QRectF sheet = sheetRect();
    const double sx = sheet.width() / kSheetUnits;
    const double sy = sheet.height() / kSheetUnits;
    return QRectF(sheet.left() + rect.left * sx, sheet.bottom() - rect.top * sy, rect.width() * sx,
                  rect.height() * sy);
}

double SheetView::unitsPerPixel() const {
    return kSheetUnits / std::max(1.0, sheetRect().width());
}

void SheetView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    const QRectF sheet = sheetRect();
    painter.fillRect(sheet, Qt::white);
    if (!picture_.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(sheet, picture_);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    for (const SheetArea& area : areas_)
        if (!area.selected)
            paintArea(painter, area);
    for (const SheetArea& area : areas_)
        if (area.selected)
            paintArea(painter, area);
    if (drawing_) {
        painter.setPen(QPen(kSelected, 2, Qt::DashLine));
        painter.setBrush(QColor(220, 30, 30, 30));
        painter.drawRect(toWidget(*drawing_));
    }
    if (marker_)
        paintMarker(painter);
}

// A cross in a white halo, seen over any picture.
void SheetView::paintMarker(QPainter& painter) const {
    constexpr double kArm = 10;
    const QRectF sheet = sheetRect();
    const QPointF at(sheet.left() + marker_->x() * sheet.width() / kSheetUnits,
                     sheet.bottom() - marker_->y() * sheet.height() / kSheetUnits);
    for (const QPen& pen : {QPen(Qt::white, 5), QPen(kSelected, 2)}) {
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawLine(at - QPointF(kArm, 0), at + QPointF(kArm, 0));
        painter.drawLine(at - QPointF(0, kArm), at + QPointF(0, kArm));
        painter.drawEllipse(at, kArm / 2, kArm / 2);
    }
}

void SheetView::paintArea(QPainter& painter, const SheetArea& area) const {
    const QRectF box = toWidget(area.rect);
    painter.setPen(QPen(area.selected ? kSelected : kOutline, area.selected ? 2.5 : 1.5));
    painter.setBrush(area.selected ? QColor(220, 30, 30, 35) : QColor(20, 70, 200, 18));
    painter.drawRect(box);
    if (!area.label.isEmpty()) {
        const QRectF space = box.adjusted(3, 2, -3, -2);
        const QFontMetricsF metrics(painter.font());
        const QString text = metrics.elidedText(area.label, Qt::ElideRight, space.width());
        QRectF tag = metrics.boundingRect(text).adjusted(-2, 0, 2, 0);
        tag.moveTopLeft(space.topLeft());
        if (tag.height() <= box.height() && !text.isEmpty()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(255, 255, 255, 200));
            painter.drawRoundedRect(tag, 2, 2);
            painter.setPen(Qt::black);
            painter.drawText(tag, Qt::AlignCenter, text);
        }
    }
    if (area.number > 0)
        paintNumber(painter, box, area.number);
    if (area.selected)
        paintGrips(painter, box);
}

// In the lower-right corner, clear of the label and the grips, when the box has room.
void SheetView::paintNumber(QPainter& painter, const QRectF& box, int number) const {
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 0.8);
    const QFontMetricsF metrics(font);
    const QString text = QString::number(number);
    QRectF tag = metrics.boundingRect(text).adjusted(-3, 0, 3, 0);
    tag.moveBottomRight(box.bottomRight() - QPointF(5, 5));
    if (tag.width() + 10 > box.width() || tag.height() + 10 > box.height())
        return;
    painter.save();
    painter.setFont(font);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 200));
    painter.drawRoundedRect(tag, 2, 2);
    painter.setPen(kOutline);
    painter.drawText(tag, Qt::AlignCenter, text);
    painter.restore();
}

void SheetView::paintGrips(QPainter& painter, const QRectF& box) const {
    painter.setPen(QPen(kSelected, 1));
    painter.setBrush(Qt::white);
    const QPointF centre = box.center();
    for (const QPointF& point :
         {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight(),
          QPointF(centre.x(), box.top()), QPointF(centre.x(), box.bottom()),
          QPointF(box.left(), centre.y()), QPointF(box.right(), centre.y())}) {
        painter.drawRect(
            QRectF(point.x() - kGripSize / 2, point.y() - kGripSize / 2, kGripSize, kGripSize));
    }
}

void SheetView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit pressed(toSheetUnits(event->position()));
}

void SheetView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton)
        emit moved(toSheetUnits(event->position()));
    else
        emit hovered(toSheetUnits(event->position()));
}

void SheetView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit released(toSheetUnits(event->position()));
}

void SheetView::keyPressEvent(QKeyEvent* event) {
    const int step = event->modifiers() & Qt::ControlModifier ? kFastStep : 1;
    const bool resize = event->modifiers() & Qt::ShiftModifier;
    switch (event->key()) {
    case Qt::Key_Left:
        emit nudged(-step, 0, resize);
        break;
    case Qt::Key_Right:
        emit nudged(step, 0, resize);
        break;
    case Qt::Key_Up:
        emit nudged(0, step, resize);
        break;
    case Qt::Key_Down:
        emit nudged(0, -step, resize);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace mervak
