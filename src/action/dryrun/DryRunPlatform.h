#pragma once

#include "action/ActionPlatform.h"
#include "action/ActionState.h"
#include "action/dryrun/DryRunClipboard.h"
#include "action/dryrun/DryRunClock.h"
#include "action/dryrun/DryRunKeyboard.h"
#include "action/dryrun/DryRunLauncher.h"
#include "action/dryrun/DryRunPointer.h"
#include "action/dryrun/DryRunRegistry.h"
#include "action/dryrun/DryRunSound.h"
#include "action/dryrun/DryRunSpeech.h"
#include "action/dryrun/DryRunWindowSystem.h"

#include <QObject>

namespace mervak {

class ActionRunner;

struct DryRunOptions {
    QString targetTitle;   // the pretend target window's title; none when empty or "|"
    QString clipboardText; // what the clipboard holds at the start
    std::optional<double> fixedSecondsSinceMidnight; // the clock's time; the real one when unset
};

// Every backend an ActionText needs, touching nothing: each effect becomes one
// line of the log, in the order it happens. Besides the backends' own effects,
// watch() adds the runner's: "page" ("page"), "paste" ("text" or "picture", the
// clipboard's content; the Ctrl+V that pastes follows as a "keys" effect),
// "load-template" ("file") and "close".
class DryRunPlatform : public QObject {
    Q_OBJECT
public:
    DryRunPlatform(DryRunLog::Sink sink, const DryRunOptions& options);

    ActionPlatform platform();
    // The pretend target window, for ActionState::TargetWindow; kNoWindow when none.
    WindowId target() const { return windows_.target(); }

    void watch(ActionRunner& runner);

    // The last line: {"effect":"state","register":...,"pending_page":...,
    // "launched":...,"folder":...,"clipboard":...}.
    void writeState(const ActionState& state);

private:
    void writePaste();

    DryRunLog log_;
    DryRunKeyboard keyboard_{log_};
    DryRunWindowSystem windows_;
    DryRunPointer pointer_{log_, DryRunWindowSystem::kScreenSize};
    DryRunClipboard clipboard_;
    DryRunLauncher launcher_{log_};
    DryRunSound sound_{log_};
    DryRunSpeech speech_{log_};
    DryRunClock clock_;
    DryRunRegistry registry_{log_};
};

} // namespace mervak
