#include "action/MouseCommand.h"

#include "RunnerBench.h"
#include "platform/Checked16.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::RunnerBench;

struct AbsoluteCase {
    int pixel;
    int screen;
    int absolute;
};

TEST(MouseCommand, ConvertsToAbsoluteRoundingHalvesToEven) {
    const AbsoluteCase cases[] = {
        {0, 1024, 0},  {1024, 1024, 65535}, {512, 1024, 32768}, {1, 2, 32768},
        {3, 2, 98302}, {2, 1000, 131},      {-10, 1000, -655},  {100, 65535, 100},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MouseCommand::toAbsolute(c.pixel, c.screen), c.absolute)
            << c.pixel << " of " << c.screen;
    EXPECT_THROW(MouseCommand::toAbsolute(1, 0), Overflow16);
}

struct WaitCase {
    double seconds;
    int ms;
};

TEST(MouseCommand, SingleClickWaitDependsOnTheFractionOfTheSecond) {
    const WaitCase cases[] = {
        {3.2, 0},  {3.7, 311}, {2.5, 0},  {3.5, 511},     {3.005, 6},
        {3.01, 1}, {3.011, 0}, {3.0, 11}, {86399.7, 311}, {0.0, 11},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MouseCommand::clickWaitMs(c.seconds), c.ms) << c.seconds;
}

struct MouseCase {
    const char* name;
    QString text;
    QStringList events; // "flags x y"; the screen is 65535 pixels wide and high
    int problems = 0;
};

// The pointer starts at (200, 100); the target window's corner is (100, 50).
TEST(MouseCommand, PerformsEachWord) {
    const MouseCase cases[] = {
        {"up by default step", "{|Mouse A}", {"8001 200 95"}},
        {"up by zero is the default step", "{|Mouse A 0}", {"8001 200 95"}},
        {"down", "{|Mouse R 7}", {"8001 200 107"}},
        {"left", "{|Mouse E}", {"8001 195 100"}},
        {"right", "{|Mouse D 10}", {"8001 210 100"}},
        {"negative step goes the other way", "{|Mouse A -3}", {"8001 200 103"}},
        {"step rounds half to even", "{|Mouse D 2.5}", {"8001 202 100"}},
        {"moves add up", "{|Mouse D 1 D 1 R 2}", {"8001 201 100", "8001 202 100", "8001 202 102"}},
        {"to the target's corner", "{|Mouse M 0 0 }", {"8001 100 50"}},
        {"missing y counts as 0", "{|Mouse M 10}", {"8001 110 50"}},
        {"right then click", "{|Mouse D 10 CE}", {"8001 210 100", "8002 210 100", "8004 210 100"}},
        {"double left click",
         "{|Mouse 2CE}",
         {"8002 200 100", "8004 200 100", "8002 200 100", "8004 200 100"}},
        {"right click", "{|Mouse CD}", {"8008 200 100", "8010 200 100"}},
        {"double right click",
         "{|Mouse 2CD}",
         {"8008 200 100", "8010 200 100", "8008 200 100", "8010 200 100"}},
        {"release left", "{|Mouse AE}", {"8004 200 100"}},
        {"release right", "{|Mouse AD}", {"8010 200 100"}},
        {"left drag from where the pointer is",
         "{|Mouse PE 30 40 }",
         {"8003 200 100", "8003 130 90", "8004 130 90"}},
        {"right drag", "{|Mouse PD 30 40}", {"8009 200 100", "8009 130 90", "8010 130 90"}},
        {"words are case-sensitive", "{|Mouse m 0 0 CE}", {"8002 200 100", "8004 200 100"}},
        {"unknown word takes its place only", "{|Mouse X 5 D}", {"8001 205 100"}},
        {"keyword in any case", "{|mouse CD}", {"8008 200 100", "8010 200 100"}},
        {"number beyond 16 bits ends the command",
         "{|Mouse CE A 99999 CD}",
         {"8002 200 100", "8004 200 100"},
         1},
        {"empty argument does nothing", "{|Mouse}", {}},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        bench.windows.setScreenSize({65535, 65535});
        bench.pointer.setPosition({200, 100});
        bench.run(c.text);
        QStringList events;
        for (const auto& event : bench.pointer.events())
            events.append(
                QStringLiteral("%1 %2 %3").arg(event.flags, 0, 16).arg(event.x).arg(event.y));
        EXPECT_EQ(events, c.events) << c.name;
        EXPECT_EQ(bench.problems.size(), c.problems) << c.name << ": " << bench.problems;
    }
}

TEST(MouseCommand, DragStartsWherePreviousWordsLeftThePointer) {
    RunnerBench bench;
    bench.windows.setScreenSize({65535, 65535});
    bench.pointer.followMoves({65535, 65535});
    bench.run("{|Mouse M 0 0 PE 10 10}");
    EXPECT_EQ(bench.log.lines, (QStringList{"pointer 8001 100 50", "pointer 8003 100 50",
                                            "pointer 8003 110 60", "pointer 8004 110 60"}));
}

TEST(MouseCommand, MeasuresFromTheScreenWhenTheTargetIsGone) {
    RunnerBench bench;
    bench.windows.setScreenSize({65535, 65535});
    bench.state.TargetWindow = 999;
    bench.run("{|Mouse M 5 6}");
    EXPECT_EQ(bench.log.lines, (QStringList{"pointer 8001 5 6"}));
}

TEST(MouseCommand, ScalesToTheScreen) {
    RunnerBench bench;
    bench.windows.setScreenSize({1000, 500});
    bench.state.TargetWindow = kNoWindow;
    bench.run("{|Mouse M 2 1}");
    EXPECT_EQ(bench.log.lines, (QStringList{"pointer 8001 131 131"}));
}

TEST(MouseCommand, NoScreenMeansNoEvents) {
    RunnerBench bench;
    bench.windows.setScreenSize({0, 0});
    bench.run("{|Mouse M 2 1}x");
    EXPECT_EQ(bench.log.lines, (QStringList{"activate Notepad - doc", "type x", "flush"}));
    EXPECT_EQ(bench.problems.size(), 1);
}

TEST(MouseCommand, SingleClickWaitResumesFromTheEventLoop) {
    RunnerBench bench;
    bench.windows.setScreenSize({65535, 65535});
    bench.pointer.setPosition({7, 8});
    bench.clock.setSecondsSinceMidnight(10.995); // rounds to 11: about 16 ms to wait
    bench.runner.SendActionText("{|Mouse CE}x");
    EXPECT_EQ(bench.log.lines, (QStringList{"pointer 8002 7 8"}));
    EXPECT_TRUE(bench.runner.isBusy());
    bench.waitUntilIdle();
    EXPECT_EQ(bench.log.lines, (QStringList{"pointer 8002 7 8", "pointer 8004 7 8",
                                            "activate Notepad - doc", "type x", "flush"}));
}

} // namespace
} // namespace mervak
