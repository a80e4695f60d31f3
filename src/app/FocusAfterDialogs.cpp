#include "app/FocusAfterDialogs.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPointer>
#include <QTimer>

namespace mervak {

FocusAfterDialogs::FocusAfterDialogs(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool FocusAfterDialogs::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Hide)
        return false;
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (!dialog || !dialog->isWindow() || !dialog->parentWidget())
        return false;
    // After the dialog is gone, once the window manager has had its say.
    QPointer<QWidget> opener = dialog->parentWidget()->window();
    QTimer::singleShot(0, opener, [opener] {
        if (opener && opener->isVisible() && !QApplication::activeModalWidget()) {
            opener->raise();
            opener->activateWindow();
        }
    });
    return false;
}

} // namespace mervak
