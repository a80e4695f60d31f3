#include "RunnerBench.h"

#include <QCoreApplication>
#include <QElapsedTimer>
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
    // A bound for a runner that hangs, not a measure of speed.
    constexpr int kGiveUpMs = 10000;
    QElapsedTimer elapsed;
    elapsed.start();
    while (runner.isBusy() && elapsed.elapsed() < kGiveUpMs)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    EXPECT_FALSE(runner.isBusy()) << "the runner never finished";
    // Effects that end from the event loop after the runner is idle (MIDI music).
    QCoreApplication::processEvents();
}

} // namespace mervak::test
