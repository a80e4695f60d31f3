#include "platform/x11/X11SwitchGrab.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>

namespace mervak {

X11SwitchGrab::X11SwitchGrab() {
    if (!connection_.isOpen())
        return;
    Display* display = connection_.display();
    XkbSetDetectableAutoRepeat(display, True, nullptr);
    notifier_ = std::make_unique<QSocketNotifier>(ConnectionNumber(display), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { readEvents(); });
}

X11SwitchGrab::~X11SwitchGrab() {
    release();
}

QStringList X11SwitchGrab::grab(const QStringList& names, Handler handler) {
    release();
    handler_ = std::move(handler);
    QStringList refused;
    for (int i = 0; i < names.size(); ++i)
        if (!grabOne(names[i], i))
            refused.append(names[i]);
    return refused;
}

bool X11SwitchGrab::grabOne(const QString& name, int index) {
    if (!connection_.isOpen())
        return false;
    Display* display = connection_.display();
    const Window root = DefaultRootWindow(display);
    X11ErrorTrap trap(connection_);
    Grabbed grabbed{false, 0, index};
    if (const int button = mouseButtonOf(name); button != 0) {
        grabbed = {true, static_cast<unsigned int>(button), index};
        XGrabButton(display, grabbed.code, AnyModifier, root, False,
                    ButtonPressMask | ButtonReleaseMask, GrabModeAsync, GrabModeAsync, None, None);
    } else {
        KeySym symbol = XStringToKeysym(name.trimmed().toLatin1().constData());
        if (symbol == NoSymbol)
            symbol = XStringToKeysym(name.trimmed().toLower().toLatin1().constData());
        const KeyCode keycode = symbol == NoSymbol ? 0 : XKeysymToKeycode(display, symbol);
        if (keycode == 0)
            return false;
        grabbed.code = keycode;
        XGrabKey(display, keycode, AnyModifier, root, True, GrabModeAsync, GrabModeAsync);
    }
    // Another program's grab of the same key or button refuses ours.
    if (trap.failed())
        return false;
    grabbed_.append(grabbed);
    return true;
}

void X11SwitchGrab::release() {
    if (connection_.isOpen()) {
        Display* display = connection_.display();
        const Window root = DefaultRootWindow(display);
        for (const Grabbed& grabbed : grabbed_) {
            if (grabbed.button)
                XUngrabButton(display, grabbed.code, AnyModifier, root);
            else
                XUngrabKey(display, static_cast<int>(grabbed.code), AnyModifier, root);
        }
        XFlush(display);
    }
    grabbed_.clear();
}

void X11SwitchGrab::readEvents() {
    if (!connection_.isOpen())
        return;
    Display* display = connection_.display();
    while (XPending(display) > 0) {
        XEvent event;
        XNextEvent(display, &event);
        const bool key = event.type == KeyPress || event.type == KeyRelease;
        const bool button = event.type == ButtonPress || event.type == ButtonRelease;
        if (!key && !button)
            continue;
        const unsigned int code = key ? event.xkey.keycode : event.xbutton.button;
        const bool down = event.type == KeyPress || event.type == ButtonPress;
        for (const Grabbed& grabbed : grabbed_)
            if (grabbed.button == button && grabbed.code == code && handler_)
                handler_(grabbed.index, down);
    }
}

} // namespace mervak
