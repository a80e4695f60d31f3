#pragma once

#include <QObject>

namespace mervak {

// When one of the program's dialogs closes, the keyboard focus goes back to the
// window that opened it, not to whichever window the window manager picks (often
// the pupil's program, which would then receive the teacher's next keys).
class FocusAfterDialogs : public QObject {
    Q_OBJECT
public:
    // Watches every dialog of the application from now on.
    explicit FocusAfterDialogs(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace mervak
