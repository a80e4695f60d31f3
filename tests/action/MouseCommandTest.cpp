#include "action/MouseCommand.h"

#include "RunnerBench.h"
#include "platform/Checked16.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::RunnerBench;

TEST(MouseCommand, ConvertsToAbsoluteRoundingHalvesToEven) {
    const int cases[][3] = {
        {0, 1024, 0}, {1024, 1024, 65535}, {1, 2, 32768}, {-10, 1000, -655}, {100, 65535, 100},
    };
    for (const auto& [pixel, screen, absolute] : cases)
        EXPECT_EQ(MouseCommand::toAbsolute(pixel, screen), absolute) << pixel << " of " << screen;
    EXPECT_THROW(MouseCommand::toAbsolute(1, 0), Overflow16);
}

TEST(MouseCommand, SingleClickWaitDependsOnTheFractionOfTheSecond) {
    const std::pair<double, int> cases[] = {
        {3.7, 311}, {2.5, 0}, {3.5, 511}, {3.0, 11}, {3.01, 1}, {3.011, 0},
    };
    for (const auto& [seconds, ms] : cases)
        EXPECT_EQ(MouseCommand::clickWaitMs(seconds), ms) << seconds;
}

QStringList pointer(QStringList events) {
    for (QString& event : events)
        event.prepend("pointer ");
    return events;
}

TEST(MouseCommand, PerformsEachWord) {
    test::expectRuns({
        {"relative steps add up, zero is the default step", "{|Mouse A 0 E 3 R -1 D 2}",
         pointer({"8001 200 95", "8001 197 95", "8001 197 94", "8001 199 94"})},
        {"from the target's corner, a missing y is 0", "{|Mouse M 10}", pointer({"8001 110 50"})},
        {"clicks and releases", "{|Mouse CE CD AE AD}",
         pointer({"8002 200 100", "8004 200 100", "8008 200 100", "8010 200 100", "8004 200 100",
                  "8010 200 100"})},
        {"double clicks", "{|Mouse 2CE 2CD}",
         pointer({"8002 200 100", "8004 200 100", "8002 200 100", "8004 200 100", "8008 200 100",
                  "8010 200 100", "8008 200 100", "8010 200 100"})},
        {"drags from where the pointer is", "{|Mouse PE 30 40 PD 1 2}",
         pointer({"8003 200 100", "8003 130 90", "8004 130 90", "8009 200 100", "8009 101 52",
                  "8010 101 52"})},
        {"unknown and lower-case words take their place only", "{|Mouse m X 5 D}",
         pointer({"8001 205 100"})},
        {"a number beyond 16 bits ends the command", "{|Mouse CE A 99999 CD}",
         pointer({"8002 200 100", "8004 200 100"}), 1},
    });
}

TEST(MouseCommand, DragStartsWherePreviousWordsLeftThePointer) {
    RunnerBench bench;
    bench.pointer.followMoves({65535, 65535});
    bench.run("{|Mouse M 0 0 PE 10 10}");
    EXPECT_EQ(bench.log.lines,
              pointer({"8001 100 50", "8003 100 50", "8003 110 60", "8004 110 60"}));
}

TEST(MouseCommand, ScalesToTheScreenFromItsCornerWhenTheTargetIsGone) {
    RunnerBench bench;
    bench.windows.setScreenSize({1000, 500});
    bench.state.TargetWindow = 999;
    bench.run("{|Mouse M 2 1}");
    EXPECT_EQ(bench.log.lines, pointer({"8001 131 131"}));
}

TEST(MouseCommand, SingleClickWaitResumesFromTheEventLoop) {
    RunnerBench bench;
    bench.clock.setSecondsSinceMidnight(10.995); // rounds to 11: about 16 ms to wait
    bench.runner.SendActionText("{|Mouse CE}x");
    EXPECT_EQ(bench.log.lines, pointer({"8002 200 100"}));
    EXPECT_TRUE(bench.runner.isBusy());
    bench.waitUntilIdle();
    EXPECT_EQ(bench.log.lines, (pointer({"8002 200 100", "8004 200 100"}) +
                                QStringList{"activate Notepad - doc", "type x", "flush"}));
}

} // namespace
} // namespace mervak
