#include "app/ScanHighlight.h"

#include <QEvent>
#include <QPainter>

namespace mervak {

ScanHighlight::ScanHighlight(SheetView* sheet) : QWidget(sheet), sheet_(sheet) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(sheet->rect());
    sheet->installEventFilter(this);
    hide();
}

void ScanHighlight::setFrame(const std::optional<SheetRect>& frame) {
    frame_ = frame;
    setVisible(frame.has_value());
    raise();
    update();
}

bool ScanHighlight::eventFilter(QObject* watched, QEvent* event) {
    if (watched == sheet_ && event->type() == QEvent::Resize)
        setGeometry(sheet_->rect());
    return QWidget::eventFilter(watched, event);
}

void ScanHighlight::paintEvent(QPaintEvent*) {
    if (!frame_)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // Astride the Areas' edges, to cover little of what they show, but kept
    // whole inside the view at the sheet's border.
    const QRectF bounds = QRectF(rect());
    const QRectF box =
        sheet_->toWidget(*frame_)
            .adjusted(-kOuterWidth / 2.0, -kOuterWidth / 2.0, kOuterWidth / 2.0, kOuterWidth / 2.0)
            .intersected(bounds);
    const double outerInset = kOuterWidth / 2.0;
    const double innerInset = kOuterWidth - kInnerWidth / 2.0 - 3.0;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, kOuterWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(box.adjusted(outerInset, outerInset, -outerInset, -outerInset));
    painter.setPen(
        QPen(QColor(255, 230, 0), kInnerWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(box.adjusted(innerInset, innerInset, -innerInset, -innerInset));
}

} // namespace mervak
