#include "platform/x11/X11Connection.h"

#include <QList>
#include <QtGlobal>
#include <X11/Xlib.h>

namespace mervak {

// The handlers are process-wide; each finds its connection by display.
struct X11ErrorHandlers {
    static QList<X11Connection*>& connections() {
        static QList<X11Connection*> list;
        return list;
    }

    static X11Connection* find(Display* display) {
        for (X11Connection* connection : connections()) {
            if (connection->display_ == display) {
                return connection;
            }
        }
        return nullptr;
    }

    static int onError(Display* display, XErrorEvent* event) {
        if (X11Connection* connection = find(display)) {
            ++connection->errorCount_;
            return 0;
        }
        // A connection that is not ours (a toolkit's): report it and carry on.
        qWarning("X protocol error %d on request %d", event->error_code, event->request_code);
        return 0;
    }

    static int onIoError(Display*) { return 0; }

    // Called instead of exit() when the server goes away.
    static void onConnectionLost(Display* display, void*) {
        if (X11Connection* connection = find(display)) {
            connection->state_ = X11Connection::State::Lost;
        }
    }

    static void install(X11Connection* connection) {
        connections().append(connection);
        XSetErrorHandler(&onError);
        XSetIOErrorHandler(&onIoError);
        XSetIOErrorExitHandler(connection->display_, &onConnectionLost, nullptr);
    }

    static void remove(X11Connection* connection) { connections().removeAll(connection); }
};

X11Connection::X11Connection(const QString& displayName) {
    const QByteArray name = displayName.isEmpty() ? qgetenv("DISPLAY") : displayName.toLocal8Bit();
    displayName_ = QString::fromLocal8Bit(name);
    if (name.isEmpty()) {
        state_ = State::NoDisplayNamed;
        return;
    }
    display_ = XOpenDisplay(name.constData());
    if (display_ == nullptr) {
        state_ = State::NotOpened;
        return;
    }
    X11ErrorHandlers::install(this);
}

X11Connection::~X11Connection() {
    if (display_ == nullptr) {
        return;
    }
    // A lost connection is closed too: Xlib sends nothing on it and frees the display.
    XCloseDisplay(display_);
    X11ErrorHandlers::remove(this);
}

bool X11Connection::isOpen() const {
    return state_ == State::Open;
}

X11ErrorTrap::X11ErrorTrap(X11Connection& connection)
    : connection_(connection), errorsBefore_(connection.errorCount()) {}

bool X11ErrorTrap::failed() {
    if (!connection_.isOpen()) {
        return true;
    }
    XSync(connection_.display(), False);
    return connection_.errorCount() != errorsBefore_;
}

} // namespace mervak
