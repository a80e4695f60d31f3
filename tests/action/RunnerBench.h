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
#include <initializer_list>

namespace mervak::test {

// An ActionRunner wired to recording fakes that share one effect log. The
// runner's signals are logged too: "page <n>", "open-template <path>", "close".
// Problems are kept apart, in `problems`. One window, "Notepad - doc", sits at
// (100, 50)-(500, 400); the target title is "Notepad" until a test changes it.
// The windows in `ownWindows` are the program's own. The screen is 65535 pixels
// wide and high, so pointer events carry pixels; the pointer stays at (200, 100).
class RunnerBench {
public:
    RunnerBench();

    // Runs the ActionText and lets the event loop run until nothing is left.
    void run(const QString& actionText);
    // Fails the test when the runner never gets idle.
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

// One ActionText run on a fresh bench whose clipboard holds "clip": the effects
// it leaves, how many problems it reports, the memory register before and after.
struct RunCase {
    const char* name;
    QString text;
    QStringList effects;
    int problems = 0;
    QString registerBefore = {};
    QString registerAfter = {};
};

void expectRuns(std::initializer_list<RunCase> cases);

} // namespace mervak::test
