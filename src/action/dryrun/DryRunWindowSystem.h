#pragma once

#include "action/dryrun/DryRunLog.h"
#include "platform/WindowSystem.h"

namespace mervak {

// A pretend screen of kScreenSize pixels holding at most one window, the
// target, at kTargetRect. Activating it is an "activate" effect with its title.
// Until then the focus is in kFocused, an untitled window of another program.
class DryRunWindowSystem : public WindowSystem {
public:
    static constexpr WindowId kTarget = 1;
    static constexpr WindowId kFocused = 2;
    static constexpr QSize kScreenSize{1920, 1080};
    static constexpr WindowRect kTargetRect{100, 50, 900, 650};

    // No window when `targetTitle` is empty or "|".
    DryRunWindowSystem(DryRunLog& log, const QString& targetTitle);

    // The target's id, or kNoWindow when there is none.
    WindowId target() const;

    QList<WindowInfo> topLevelWindows() override;
    // Exact, else begins-with, without regard to case, as the real one.
    WindowId findByTitle(const QString& title) override;
    bool activate(WindowId window) override;
    WindowId activeWindow() override;
    QString title(WindowId window) override;
    std::optional<WindowRect> rect(WindowId window) override;
    QSize screenSize() override { return kScreenSize; }

private:
    DryRunLog& log_;
    QString title_;
    WindowId active_ = kFocused;
};

} // namespace mervak
