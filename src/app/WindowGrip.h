#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>

namespace mervak {

// A handle with which the user moves or resizes its window, for a window that no
// window manager frames: a bar showing the window's title, or a corner.
class WindowGrip : public QWidget {
    Q_OBJECT
public:
    enum class Role { Move, Resize };
    WindowGrip(Role role, QWidget* parent);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Role role_;
    QPoint pressedAt_; // on the screen
    QRect startPlace_; // the window's, when pressed
    bool dragging_ = false;
};

} // namespace mervak
