#include "RunnerBench.h"

#include "support/QtPrinters.h"
#include "support/Waiting.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace mervak::test {

RunnerBench::RunnerBench()
    : runner(
          ActionPlatform{keyboard, windows, pointer, clipboard, launcher, sound, speech, clock,
                         registry},
          state, [this] { return targetTitle; },
          [this](WindowId window) { return ownWindows.contains(window); }) {
    notepad = windows.addWindow(QStringLiteral("Notepad - doc"), WindowRect{100, 50, 500, 400});
    state.TargetWindow = notepad;
    windows.setScreenSize({65535, 65535});
    pointer.setPosition({200, 100});
    state.speechAvailable = true;
    clock.setSecondsSinceMidnight(3600.25); // a single click then needs no wait
    QObject::connect(&runner, &ActionRunner::problem,
                     [this](const QString& message) { problems.append(message); });
    QObject::connect(&runner, &ActionRunner::pendingPageSet,
                     [this](int page) { log.add(QStringLiteral("page %1").arg(page)); });
    QObject::connect(&runner, &ActionRunner::openTemplateRequested,
                     [this](const QString& path) { log.add("open-template " + path); });
    QObject::connect(&runner, &ActionRunner::closeRequested,
                     [this] { log.add(QStringLiteral("close")); });
}

void RunnerBench::run(const QString& actionText) {
    runner.SendActionText(actionText);
    waitUntilIdle();
}

void RunnerBench::waitUntilIdle() {
    EXPECT_TRUE(waitFor([this] { return !runner.isBusy(); })) << "the runner never finished";
    // Effects that end from the event loop after the runner is idle (MIDI music).
    QCoreApplication::processEvents();
}

void expectRuns(std::initializer_list<RunCase> cases) {
    for (const RunCase& c : cases) {
        RunnerBench bench;
        bench.clipboard.hold(QStringLiteral("clip"));
        bench.state.memoryRegister = c.registerBefore;
        bench.run(c.text);
        EXPECT_EQ(bench.log.lines, c.effects) << c.name;
        EXPECT_EQ(bench.problems.size(), c.problems) << c.name << ": " << bench.problems;
        EXPECT_EQ(bench.state.memoryRegister, c.registerAfter) << c.name;
    }
}

} // namespace mervak::test
