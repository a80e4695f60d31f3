#include "action/dryrun/DryRunWindowSystem.h"

namespace mervak {

DryRunWindowSystem::DryRunWindowSystem(DryRunLog& log, const QString& targetTitle)
    : log_(log), title_(targetTitle == u"|" ? QString() : targetTitle) {}

WindowId DryRunWindowSystem::target() const {
    return title_.isEmpty() ? kNoWindow : kTarget;
}

QList<WindowInfo> DryRunWindowSystem::topLevelWindows() {
    if (target() == kNoWindow)
        return {};
    return {WindowInfo{kTarget, title_}};
}

WindowId DryRunWindowSystem::findByTitle(const QString& title) {
    if (target() == kNoWindow || title.isEmpty())
        return kNoWindow;
    return title_.startsWith(title, Qt::CaseInsensitive) ? kTarget : kNoWindow;
}

bool DryRunWindowSystem::activate(WindowId window) {
    if (window == kNoWindow || window != target())
        return false;
    active_ = window;
    log_.write(DryRunLine("activate").add("title", title_));
    return true;
}

WindowId DryRunWindowSystem::activeWindow() {
    return active_;
}

QString DryRunWindowSystem::title(WindowId window) {
    return window != kNoWindow && window == target() ? title_ : QString();
}

std::optional<WindowRect> DryRunWindowSystem::rect(WindowId window) {
    if (window == kNoWindow || window != target())
        return std::nullopt;
    return kTargetRect;
}

} // namespace mervak
