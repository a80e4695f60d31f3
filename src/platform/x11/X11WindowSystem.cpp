#include "platform/x11/X11WindowSystem.h"

#include "platform/WindowTitleMatch.h"
#include "platform/x11/X11Connection.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <algorithm>
#include <chrono>
#include <thread>

namespace mervak {

namespace {

// Frees what Xlib allocated for a reply.
template <typename T> struct XFreeOnExit {
    T* data = nullptr;
    ~XFreeOnExit() {
        if (data != nullptr) {
            XFree(data);
        }
    }
};

struct Children {
    Window root = 0;
    Window parent = 0;
    QList<Window> list; // bottom of the stack first
};

std::optional<Children> queryTree(Display* display, Window window) {
    Children result;
    XFreeOnExit<Window> children;
    unsigned count = 0;
    if (!XQueryTree(display, window, &result.root, &result.parent, &children.data, &count)) {
        return std::nullopt;
    }
    for (unsigned i = 0; i < count; ++i) {
        result.list.append(children.data[i]);
    }
    return result;
}

bool isViewable(Display* display, Window window) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(display, window, &attributes) &&
           attributes.map_state == IsViewable && !attributes.override_redirect;
}

} // namespace

X11WindowSystem::X11WindowSystem(X11Connection& connection) : connection_(connection) {}

unsigned long X11WindowSystem::atom(const char* name) {
    return XInternAtom(connection_.display(), name, False);
}

bool X11WindowSystem::windowManagerRuns() {
    if (!connection_.isOpen()) {
        return false;
    }
    if (!managerRuns_) {
        lookForWindowManager();
    }
    return *managerRuns_;
}

// A manager that follows EWMH names a check window that names itself.
void X11WindowSystem::lookForWindowManager() {
    const Window root = DefaultRootWindow(connection_.display());
    const QList<Window> check = windowList(root, "_NET_SUPPORTING_WM_CHECK");
    const QList<Window> self =
        check.isEmpty() ? QList<Window>() : windowList(check.front(), "_NET_SUPPORTING_WM_CHECK");
    managerRuns_ = !self.isEmpty() && self.front() == check.front();
}

// A property holding windows (format 32); empty when missing or the window is gone.
QList<Window> X11WindowSystem::windowList(Window window, const char* property) {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long after = 0;
    XFreeOnExit<unsigned char> data;
    QList<Window> result;
    const int status =
        XGetWindowProperty(connection_.display(), window, atom(property), 0, 1 << 16, False,
                           XA_WINDOW, &type, &format, &count, &after, &data.data);
    if (status != Success || type != XA_WINDOW || format != 32 || data.data == nullptr) {
        return result;
    }
    // Xlib hands format-32 items over as longs.
    const auto* items = reinterpret_cast<const unsigned long*>(data.data);
    for (unsigned long i = 0; i < count; ++i) {
        result.append(items[i]);
    }
    return result;
}

QByteArray X11WindowSystem::textProperty(Window window, const char* property, const char* type) {
    Atom actualType = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long after = 0;
    XFreeOnExit<unsigned char> data;
    const int status =
        XGetWindowProperty(connection_.display(), window, atom(property), 0, 1 << 14, False,
                           atom(type), &actualType, &format, &count, &after, &data.data);
    if (status != Success || format != 8 || data.data == nullptr) {
        return {};
    }
    return QByteArray(reinterpret_cast<const char*>(data.data), static_cast<qsizetype>(count));
}

// _NET_WM_NAME in UTF-8, else WM_NAME in whatever encoding it declares.
QString X11WindowSystem::titleOf(Window window) {
    const QByteArray utf8 = textProperty(window, "_NET_WM_NAME", "UTF8_STRING");
    if (!utf8.isEmpty()) {
        return QString::fromUtf8(utf8);
    }
    XTextProperty name;
    if (!XGetWMName(connection_.display(), window, &name) || name.value == nullptr) {
        return {};
    }
    XFreeOnExit<unsigned char> value{name.value};
    char** list = nullptr;
    int count = 0;
    QString title;
    if (Xutf8TextPropertyToTextList(connection_.display(), &name, &list, &count) >= Success &&
        count > 0 && list != nullptr) {
        title = QString::fromUtf8(list[0]);
    }
    if (list != nullptr) {
        XFreeStringList(list);
    }
    return title;
}

// The window itself when it has a title, else the first titled window below it.
Window X11WindowSystem::titledWindowIn(Window window, int depth) {
    if (!titleOf(window).isEmpty()) {
        return window;
    }
    const std::optional<Children> tree = queryTree(connection_.display(), window);
    if (depth == 0 || !tree) {
        return 0;
    }
    for (Window child : tree->list) {
        if (const Window titled = titledWindowIn(child, depth - 1)) {
            return titled;
        }
    }
    return 0;
}

QList<WindowInfo> X11WindowSystem::topLevelWindows() {
    QList<WindowInfo> windows;
    if (!connection_.isOpen()) {
        return windows;
    }
    Display* display = connection_.display();
    const Window root = DefaultRootWindow(display);
    QList<Window> candidates;
    lookForWindowManager();
    if (*managerRuns_) {
        candidates = windowList(root, "_NET_CLIENT_LIST_STACKING");
        if (candidates.isEmpty()) {
            candidates = windowList(root, "_NET_CLIENT_LIST");
        }
    } else if (const std::optional<Children> tree = queryTree(display, root)) {
        for (Window child : tree->list) {
            const Window titled = isViewable(display, child) ? titledWindowIn(child, 2) : 0;
            if (titled != 0) {
                candidates.append(titled);
            }
        }
    }
    for (Window window : candidates) {
        const QString title = titleOf(window);
        if (!title.isEmpty()) {
            windows.append({window, title});
        }
    }
    return windows;
}

WindowId X11WindowSystem::findByTitle(const QString& title) {
    if (foundWindow_ != 0 && title == foundTitle_ && connection_.isOpen() &&
        titleOf(foundWindow_).compare(title, Qt::CaseInsensitive) == 0) {
        return foundWindow_;
    }
    const QList<WindowInfo> windows = topLevelWindows();
    const WindowId found = findWindowByTitle(windows, title);
    const bool whole = std::any_of(windows.begin(), windows.end(), [&](const WindowInfo& window) {
        return window.id == found && window.title.compare(title, Qt::CaseInsensitive) == 0;
    });
    foundTitle_ = title;
    foundWindow_ = whole ? found : 0;
    return found;
}

// The ancestor of `window` just below the root: the window manager's frame, or the
// window itself when nothing reparented it. 0 when the window is gone.
Window X11WindowSystem::rootChildOf(Window window) {
    Display* display = connection_.display();
    Window current = window;
    while (true) {
        const std::optional<Children> tree = queryTree(display, current);
        if (!tree) {
            return 0;
        }
        if (tree->parent == tree->root || tree->parent == 0) {
            return current;
        }
        current = tree->parent;
    }
}

// Whether the input focus is in `window` or in one of its descendants.
bool X11WindowSystem::focusIsIn(Window window) {
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(connection_.display(), &focus, &revert);
    if (focus == None || focus == PointerRoot) {
        return false;
    }
    for (Window current = focus; current != 0;) {
        if (current == window) {
            return true;
        }
        const std::optional<Children> tree = queryTree(connection_.display(), current);
        current = tree ? tree->parent : 0;
    }
    return false;
}

bool X11WindowSystem::waitForFocus(Window window) {
    const auto deadline =
        std::chrono::steady_clock::now() + std::chrono::milliseconds(kActivateTimeoutMs);
    while (connection_.isOpen()) {
        if (focusIsIn(window)) {
            return true;
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

bool X11WindowSystem::focusDirectly(Window window) {
    Display* display = connection_.display();
    X11ErrorTrap trap(connection_);
    XMapRaised(display, window);
    XRaiseWindow(display, rootChildOf(window));
    if (trap.failed()) {
        return false;
    }
    // A window just mapped takes the focus only once it is viewable.
    const auto deadline =
        std::chrono::steady_clock::now() + std::chrono::milliseconds(kActivateTimeoutMs);
    while (!isViewable(display, window) && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    X11ErrorTrap focusTrap(connection_);
    XSetInputFocus(display, window, RevertToParent, CurrentTime);
    return !focusTrap.failed() && focusIsIn(window);
}

// A window that cannot take the focus is not given again by findByTitle().
bool X11WindowSystem::activate(WindowId id) {
    const Window window = static_cast<Window>(id);
    const bool focused = connection_.isOpen() && window != 0 && focusOn(window);
    if (!focused && window == foundWindow_) {
        foundWindow_ = 0;
    }
    return focused;
}

bool X11WindowSystem::focusOn(Window window) {
    if (focusIsIn(window)) {
        return true;
    }
    XWindowAttributes attributes;
    if (!XGetWindowAttributes(connection_.display(), window, &attributes)) {
        return false;
    }
    if (windowManagerRuns()) {
        Display* display = connection_.display();
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = atom("_NET_ACTIVE_WINDOW");
        event.xclient.format = 32;
        event.xclient.data.l[0] = 2; // from a pager: managers honour it without a timestamp
        event.xclient.data.l[1] = CurrentTime;
        event.xclient.data.l[2] = static_cast<long>(activeWindow());
        XSendEvent(display, DefaultRootWindow(display), False,
                   SubstructureRedirectMask | SubstructureNotifyMask, &event);
        XFlush(display);
        if (waitForFocus(window)) {
            return true;
        }
        lookForWindowManager(); // it may have gone
    }
    return connection_.isOpen() && focusDirectly(window);
}

// Where keys go now: the managed window that holds the input focus. The manager's
// _NET_ACTIVE_WINDOW can lag behind the focus, so it only answers when the focus is
// on none of the managed windows.
WindowId X11WindowSystem::activeWindow() {
    if (!connection_.isOpen()) {
        return kNoWindow;
    }
    Display* display = connection_.display();
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(display, &focus, &revert);
    const bool focused = focus != None && focus != PointerRoot;
    if (!windowManagerRuns()) {
        const Window top = focused ? rootChildOf(focus) : 0;
        return top == 0 ? kNoWindow : titledWindowIn(top, 2);
    }
    const Window root = DefaultRootWindow(display);
    const QList<Window> clients = windowList(root, "_NET_CLIENT_LIST");
    for (Window current = focused ? focus : 0; current != 0 && current != root;) {
        if (clients.contains(current)) {
            return current;
        }
        const std::optional<Children> tree = queryTree(display, current);
        current = tree ? tree->parent : 0;
    }
    const QList<Window> active = windowList(root, "_NET_ACTIVE_WINDOW");
    return active.isEmpty() ? kNoWindow : active.front();
}

QString X11WindowSystem::title(WindowId window) {
    return connection_.isOpen() && window != kNoWindow ? titleOf(static_cast<Window>(window))
                                                       : QString();
}

std::optional<WindowRect> X11WindowSystem::rect(WindowId window) {
    if (!connection_.isOpen() || window == kNoWindow) {
        return std::nullopt;
    }
    const Window frame = rootChildOf(static_cast<Window>(window));
    XWindowAttributes attributes;
    if (frame == 0 || !XGetWindowAttributes(connection_.display(), frame, &attributes)) {
        return std::nullopt;
    }
    const int border = 2 * attributes.border_width;
    return WindowRect{attributes.x, attributes.y, attributes.x + attributes.width + border,
                      attributes.y + attributes.height + border};
}

QSize X11WindowSystem::screenSize() {
    if (!connection_.isOpen()) {
        return {};
    }
    Display* display = connection_.display();
    const int screen = DefaultScreen(display);
    return {DisplayWidth(display, screen), DisplayHeight(display, screen)};
}

} // namespace mervak
