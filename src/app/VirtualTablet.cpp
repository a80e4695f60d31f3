#include "app/VirtualTablet.h"

#include <QVBoxLayout>

namespace mervak {

VirtualTablet::VirtualTablet(QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint),
      sheet_(new SheetView(this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    sheet_->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(sheet_);
    resize(360, 360);
    connect(sheet_, &SheetView::pressed, this, &VirtualTablet::pressed);
}

void VirtualTablet::showBusy(bool busy) {
    if (busy)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
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
