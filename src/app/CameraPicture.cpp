#include "app/CameraPicture.h"

#include "tracker/FrameSource.h"

#include <QMouseEvent>
#include <QPainter>

namespace mervak {

namespace {

constexpr int kMarkerRing = 14;

// A ring seen on any colour: white inside black.
void drawMarker(QPainter& painter, QPoint centre) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 5));
    painter.drawEllipse(centre, kMarkerRing, kMarkerRing);
    painter.setPen(QPen(Qt::white, 2));
    painter.drawEllipse(centre, kMarkerRing, kMarkerRing);
}

} // namespace

CameraPicture::CameraPicture(QWidget* parent) : QWidget(parent) {
    setFixedSize(kFrameWidth, kFrameHeight);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CameraPicture::showLive(const QImage& frame, std::optional<QPoint> marker) {
    live_ = frame;
    marker_ = marker;
    update();
}

void CameraPicture::clearLive() {
    live_ = QImage();
    marker_.reset();
    update();
}

void CameraPicture::setBackground(const QImage& picture) {
    background_ = picture;
    update();
}

void CameraPicture::setBackgroundVisible(bool visible) {
    backgroundVisible_ = visible;
    update();
}

QImage CameraPicture::shown() const {
    if (!live_.isNull())
        return live_;
    return backgroundVisible_ ? background_ : QImage();
}

void CameraPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    const QImage picture = shown();
    if (!picture.isNull())
        painter.drawImage(QRect(0, 0, kFrameWidth, kFrameHeight), picture);
    if (!live_.isNull() && marker_)
        drawMarker(painter, *marker_);
}

void CameraPicture::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit clicked(event->position().toPoint());
}

} // namespace mervak
