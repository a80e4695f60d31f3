#pragma once

#include "action/ActionRunner.h"
#include "support/EffectLog.h"
#include "support/FakeClipboard.h"
#include "support/FakeClock.h"
#include "support/FakeKeyboard.h"
#include "support/FakeLauncher.h"
#include "support/FakePointer.h"
#include "support/FakeRegistry.h"
#include "support/FakeSound.h"
#include "support/FakeSpeech.h"
#include "support/FakeWindowSystem.h"

#include <QStringList>

namespace mervak::test {

// An ActionRunner wired to recording fakes that share one effect log. The
// runner's signals are logged too: "page <n>", "open-template <path>", "close".
// Problems are kept apart, in `problems`. One window, "Notepad - doc", sits at
// (100, 50)-(500, 400); the target title is "Notepad" until a test changes it.
// The windows in `ownWindows` are the program's own.
class RunnerBench {
public:
    RunnerBench();
    RunnerBench(const RunnerBench&) = delete;
    RunnerBench& operator=(const RunnerBench&) = delete;

    // Runs the ActionText and lets the event loop run until nothing is left.
    void run(const QString& actionText);
    // Lets the event loop run until the runner is idle; fails the test when it
    // never gets there.
    void waitUntilIdle();

    EffectLog log;
    FakeKeyboard keyboard{&log};
    FakeWindowSystem windows{&log};
    FakePointer pointer{&log};
    FakeClipboard clipboard{&log};
    FakeLauncher launcher{&log};
    FakeSound sound{&log};
    FakeSpeech speech{&log};
    FakeClock clock;
    FakeRegistry registry;
    ActionState state;
    QString targetTitle = QStringLiteral("Notepad");
    WindowId notepad = kNoWindow;
    QList<WindowId> ownWindows;
    QStringList problems;
    ActionRunner runner;
};

} // namespace mervak::test
