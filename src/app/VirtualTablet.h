#pragma once

#include "devices/PressPoint.h"
#include "editor/widgets/SheetView.h"
#include "platform/Language.h"

#include <QMainWindow>
#include <QTimer>

namespace mervak {

class WindowGrip;

// The on-screen tablet: a window showing the current page's sheet that never takes
// the keyboard focus, so the pupil's program keeps it while the sheet is clicked.
class VirtualTablet : public QWidget {
    Q_OBJECT
public:
    // Who lets the user move and resize the window.
    enum class Frame {
        WindowManager,
        // Its own title bar and corner, the window manager kept out: on a Wayland
        // desktop the compositor gives the keyboard focus to any window it frames
        // that is clicked, whatever the window asks.
        Own,
    };

    explicit VirtualTablet(Frame frame = Frame::WindowManager, QWidget* parent = nullptr);

    SheetView* sheet() const { return sheet_; }

    // The hourglass shown between a click and its dispatch.
    void showBusy(bool busy);
    // Marks where the device points (a joystick's stick); (0, 0) points nowhere.
    void showPointer(PressPoint pointer);

    // Shows the tablet at `place` (as place() gives it) while enough of that is on
    // the screen; else beside `mainWindow`, or in the screen's lower right corner
    // when there is no room beside it, never over its menus and toolbar; a new
    // place takes the shape of a sheet of `sheetMm`.
    void showAt(const QRect& place, const QMainWindow& mainWindow, QSizeF sheetMm);
    // Where the tablet is: its frame's corner and the size inside the frame;
    // while it fills a screen, where it was before.
    QRect place() const;

    // The title names the Template the pupil presses; menus speak `language`.
    void setTemplateName(const QString& name, Language language);
    // Fills `screen` (a right click on the sheet offers each screen), or goes
    // back to a window where it was, with nullptr.
    void setFullScreenOn(QScreen* screen);

signals:
    void pressed(QPointF sheetPoint);
    void visibilityChanged(bool visible);
    // The window moved or changed size, and has stayed so for a moment.
    void placeChosen();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

private:
    void showScreenMenu(QPoint at);

    SheetView* sheet_;
    WindowGrip* moveBar_ = nullptr; // with its own frame only, as the corner
    WindowGrip* corner_ = nullptr;
    Language language_ = Language::Catalan;
    QRect windowedPlace_;
    QTimer placeSettling_;
};

} // namespace mervak
