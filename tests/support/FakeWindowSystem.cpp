#include "support/FakeWindowSystem.h"

namespace mervak::test {

WindowId FakeWindowSystem::addWindow(const QString& title, const WindowRect& rect) {
    const WindowId id = nextId_++;
    windows_.append({{id, title}, rect});
    return id;
}

void FakeWindowSystem::removeWindow(WindowId window) {
    windows_.removeIf([window](const Window& w) { return w.info.id == window; });
    if (active_ == window)
        active_ = kNoWindow;
}

const FakeWindowSystem::Window* FakeWindowSystem::find(WindowId window) const {
    for (const Window& w : windows_)
        if (w.info.id == window)
            return &w;
    return nullptr;
}

QList<WindowInfo> FakeWindowSystem::topLevelWindows() {
    QList<WindowInfo> infos;
    for (const Window& w : windows_)
        infos.append(w.info);
    return infos;
}

WindowId FakeWindowSystem::findByTitle(const QString& title) {
    for (const Window& w : windows_)
        if (w.info.title.compare(title, Qt::CaseInsensitive) == 0)
            return w.info.id;
    for (const Window& w : windows_)
        if (w.info.title.startsWith(title, Qt::CaseInsensitive))
            return w.info.id;
    return kNoWindow;
}

bool FakeWindowSystem::activate(WindowId window) {
    const Window* w = find(window);
    if (!w || refusing_.contains(window))
        return false;
    active_ = window;
    activations_.append(window);
    logTo(log_, QStringLiteral("activate ") + w->info.title);
    return true;
}

QString FakeWindowSystem::title(WindowId window) {
    const Window* w = find(window);
    return w ? w->info.title : QString();
}

std::optional<WindowRect> FakeWindowSystem::rect(WindowId window) {
    const Window* w = find(window);
    return w ? std::optional<WindowRect>(w->rect) : std::nullopt;
}

} // namespace mervak::test
