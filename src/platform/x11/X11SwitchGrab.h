#pragma once

#include "platform/SwitchGrab.h"
#include "platform/x11/X11Connection.h"

#include <QList>
#include <QSocketNotifier>
#include <memory>

namespace mervak {

// Passive grabs on the root window, on a connection of their own so that no
// other backend reads their events: a grabbed key or button goes to this
// program whatever has the focus. Held keys do not repeat their releases.
class X11SwitchGrab : public SwitchGrab {
public:
    X11SwitchGrab();
    ~X11SwitchGrab() override;

    QStringList grab(const QStringList& names, Handler handler) override;
    void release() override;

private:
    struct Grabbed {
        bool button;
        unsigned int code; // keycode or button number
        int index;
    };

    bool grabOne(const QString& name, int index);
    void readEvents();

    X11Connection connection_;
    std::unique_ptr<QSocketNotifier> notifier_;
    QList<Grabbed> grabbed_;
    Handler handler_;
};

} // namespace mervak
