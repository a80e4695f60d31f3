#include "platform/FocusedWindowSystem.h"

namespace mervak {

FocusedWindowSystem::FocusedWindowSystem(std::function<QSize()> screenSize)
    : screenSize_(std::move(screenSize)) {}

QList<WindowInfo> FocusedWindowSystem::topLevelWindows() {
    return {{kFocusedWindow, lastTitle_}};
}

WindowId FocusedWindowSystem::findByTitle(const QString& title) {
    if (title.isEmpty())
        return kNoWindow;
    lastTitle_ = title;
    return kFocusedWindow;
}

bool FocusedWindowSystem::activate(WindowId window) {
    return window == kFocusedWindow;
}

WindowId FocusedWindowSystem::activeWindow() {
    return kFocusedWindow;
}

QString FocusedWindowSystem::title(WindowId window) {
    return window == kFocusedWindow ? lastTitle_ : QString();
}

std::optional<WindowRect> FocusedWindowSystem::rect(WindowId) {
    return std::nullopt;
}

QSize FocusedWindowSystem::screenSize() {
    return screenSize_ ? screenSize_() : QSize();
}

} // namespace mervak
