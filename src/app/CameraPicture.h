#pragma once

#include <QImage>
#include <QWidget>
#include <optional>

namespace mervak {

// The calibration form's picture box: 640 x 480 camera pixels, one for one. It
// shows the live picture with the detected marker ringed while a preview runs,
// else the background picture when that is to be seen, else nothing.
class CameraPicture : public QWidget {
    Q_OBJECT
public:
    explicit CameraPicture(QWidget* parent = nullptr);

    void showLive(const QImage& frame, std::optional<QPoint> marker);
    void clearLive();
    void setBackground(const QImage& picture);
    void setBackgroundVisible(bool visible);

    // What is on show now; null when nothing is.
    QImage shown() const;

signals:
    void clicked(QPoint point);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QImage live_;
    std::optional<QPoint> marker_;
    QImage background_;
    bool backgroundVisible_ = true;
};

} // namespace mervak
