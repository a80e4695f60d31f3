#include "dispatch/PressDispatcher.h"

#include "support/FakeClipboard.h"
#include "support/TestAreas.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <deque>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// Readings handed out one per poll; nothing pressed once they run out.
class ScriptedDevice : public DeviceSource {
public:
    std::deque<DeviceReading> readings;
    DeviceReading read() override {
        if (readings.empty())
            return {false, 0, 0};
        const DeviceReading next = readings.front();
        readings.pop_front();
        return next;
    }
};

DeviceReading pen(int16_t x, int16_t y) {
    return {true, x, y};
}
DeviceReading lifted() {
    return {false, 0, 0};
}

class PressDispatcherTest : public ::testing::Test {
protected:
    void SetUp() override {
        tmpl.PageCount = 2;
        tmpl.AppendArea(test::makeArea(10, 10, 50, 50, 1, "A"));
        tmpl.AppendArea(test::makeArea(40, 40, 80, 80, 1, "B"));
        tmpl.AppendArea(test::makeArea(10, 10, 50, 50, 2, "other page"));
        tmpl.AppendArea(test::makeArea(100, 100, 90, 90, 1, "reversed"));
        dispatcher.setDevice(&device);
    }

    void poll(const std::vector<DeviceReading>& readings) {
        for (const auto& reading : readings) {
            device.readings.push_back(reading);
            dispatcher.tick();
        }
    }

    Session session{QString()};
    Template& tmpl{session.tmpl};
    QString& workingFolder{session.workingFolder()};
    test::FakeClipboard clipboard;
    ScriptedDevice device;
    QStringList fired;
    int beeps = 0;
    QString waitingText; // an ActionText that waits (for a flush, a sound) once started
    bool running = false;
    PressDispatcher dispatcher{session,
                               clipboard,
                               {[this](const QString& text) {
                                    fired.append(text);
                                    running = text == waitingText;
                                },
                                [this] { return running; }, [this] { ++beeps; }}};
};

TEST_F(PressDispatcherTest, AHeldPenFiresOnceUntilFiveEmptyPolls) {
    session.DevicePresent = true;
    poll({pen(30, 30), pen(30, 30), pen(30, 30)});
    EXPECT_EQ(fired, QStringList{"A"});
    poll({lifted(), lifted(), lifted(), lifted(), pen(30, 30)});
    EXPECT_EQ(fired, QStringList{"A"}) << "four empty polls keep the Area";
    poll({lifted(), lifted(), lifted(), lifted(), lifted(), pen(30, 30)});
    EXPECT_EQ(fired, (QStringList{"A", "A"})) << "the fifth forgets it";
    poll({pen(60, 60), pen(30, 30)});
    EXPECT_EQ(fired, (QStringList{"A", "A", "B", "A"})) << "a press elsewhere forgets it too";
}

TEST_F(PressDispatcherTest, EmptyPollsNeitherStickNorOverflow) {
    session.DevicePresent = true;
    QSignalSpy problem(&dispatcher, &PressDispatcher::problem);
    dispatcher.setDrawWithDevice(true);
    for (int i = 0; i < 40000; ++i) // over half an hour of polls in drawing mode
        poll({lifted()});
    dispatcher.setDrawWithDevice(false);
    dispatcher.DispatchPress(30, 30);
    poll({lifted()});
    dispatcher.DispatchPress(30, 30);
    EXPECT_EQ(fired, (QStringList{"A", "A"})) << "a count already past 5 forgets at once";
    EXPECT_TRUE(problem.isEmpty());
}

// As "x{|Espera 200}{|Pagina 2}": a press made during the wait belongs to page 2,
// and its clip file waits too.
TEST_F(PressDispatcherTest, PressesDuringAnActionTextTakeTheirTurnAfterIt) {
    QTemporaryDir dir;
    workingFolder = dir.path();
    test::writeAll(dir.filePath("p2.txt"), "pagina 2");
    tmpl.area(3).Clip = "p2.txt";
    waitingText = "A";
    dispatcher.DispatchPress(30, 30);
    dispatcher.DispatchPress(30, 30);
    EXPECT_EQ(fired, QStringList{"A"});
    EXPECT_TRUE(clipboard.text().isEmpty());
    tmpl.CurrentPage = 2;
    running = false;
    dispatcher.actionTextsFinished();
    EXPECT_EQ(fired, (QStringList{"A", "other page"}));
    EXPECT_EQ(clipboard.text(), QStringLiteral("pagina 2"));
}

TEST_F(PressDispatcherTest, TheQueueKeepsTheNewestPressesAndAHeldPenOnce) {
    session.DevicePresent = true;
    QSignalSpy problem(&dispatcher, &PressDispatcher::problem);
    waitingText = "A";
    poll({pen(30, 30), pen(60, 60), pen(60, 60), pen(60, 60)});
    for (std::size_t i = 0; i < PressDispatcher::kMaxQueuedPresses; ++i) {
        const int16_t at = i % 2 ? 60 : 95; // B and "reversed" in turn: none repeats
        dispatcher.DispatchPress(at, at);
    }
    EXPECT_EQ(problem.size(), 1) << "the held pen's press was the oldest, dropped";
    running = false;
    dispatcher.actionTextsFinished();
    EXPECT_EQ(fired.size(), 1 + 32);
}

TEST_F(PressDispatcherTest, ZeroCoordinatesAndBadStatusAreNoPress) {
    session.DevicePresent = true;
    tmpl.AppendArea(test::makeArea(0, 0, 5, 5, 1, "corner"));
    poll({{true, 0, 3}, {true, 3, 0}, {false, 3, 3}, {true, 3, 3}});
    EXPECT_EQ(fired, QStringList{"corner"});
}

TEST_F(PressDispatcherTest, RepeatedReadingsFireOnEveryPoll) {
    session.DevicePresent = true;
    tmpl.area(1).Flags = 1;
    poll({pen(30, 30), pen(30, 30), pen(30, 30)});
    EXPECT_EQ(fired.size(), 3);
}

TEST_F(PressDispatcherTest, BeepsOnDevicePressesOnlyWithSoundOn) {
    session.DevicePresent = true;
    poll({pen(30, 30), lifted()});
    EXPECT_EQ(beeps, 0);
    tmpl.SoundActive = -1;
    poll({pen(60, 60)});
    EXPECT_EQ(beeps, 1);
}

TEST_F(PressDispatcherTest, VirtualTabletRepeatsOnlyWithoutADevice) {
    dispatcher.setVirtualTabletShown(true);
    const auto click = [this](QPointF at) {
        dispatcher.setVirtualPress(at);
        dispatcher.tick();
        dispatcher.tick();
    };
    click({30.4, 29.6});
    click({30.4, 29.6});
    EXPECT_EQ(fired, (QStringList{"A", "A"}));
    EXPECT_EQ(beeps, 2) << "the virtual tablet always beeps";
    session.DevicePresent = true;
    click({60, 60});
    click({60, 60});
    EXPECT_EQ(fired, (QStringList{"A", "A", "B"}));
}

TEST_F(PressDispatcherTest, AnArrivingPressFiresAtOnceAndIsNotPolledTwice) {
    session.DevicePresent = true;
    tmpl.area(1).Flags = 1; // repeats: a second firing would show
    dispatcher.deviceReadingArrived(pen(30, 30));
    EXPECT_EQ(fired.size(), 1) << "dispatched on arrival";
    device.readings.push_back(pen(30, 30));
    dispatcher.tick();
    EXPECT_EQ(fired.size(), 1) << "the tick counts the reading as polled";
    device.readings.push_back(pen(30, 30));
    dispatcher.tick();
    EXPECT_EQ(fired.size(), 2) << "later polls repeat as before";
    dispatcher.deviceReadingArrived(pen(31, 31));
    EXPECT_EQ(fired.size(), 2) << "a moving pen does not start a new press";
}

TEST_F(PressDispatcherTest, ClipFilesGoToTheClipboardBeforeTheActionText) {
    QTemporaryDir dir;
    workingFolder = dir.path();
    test::writeAll(dir.filePath("Text.TXT"), "bon dia\xe0");
    tmpl.area(1).Clip = "TEXT.txt";
    QSignalSpy loaded(&dispatcher, &PressDispatcher::clipTextLoaded);
    dispatcher.DispatchPress(30, 30);
    EXPECT_EQ(clipboard.text(), QStringLiteral("bon diaà"));
    ASSERT_EQ(loaded.size(), 1);
    EXPECT_EQ(fired, QStringList{"A"});

    tmpl.area(2).Clip = "missing.bmp";
    tmpl.area(2).ClipFlag = 1;
    QSignalSpy problem(&dispatcher, &PressDispatcher::problem);
    dispatcher.DispatchPress(60, 60);
    ASSERT_EQ(problem.size(), 1);
    EXPECT_TRUE(problem.first().first().toString().startsWith("Error en llegir el fitxer "));
    EXPECT_EQ(fired, QStringList{"A"}) << "a missing clip ends the press";
}

// An untrusted Template reads clip files from its own folder only; the press goes on.
TEST_F(PressDispatcherTest, AnUntrustedTemplateReadsNoClipFromOutsideItsFolder) {
    QTemporaryDir dir;
    QDir(dir.path()).mkpath("plant");
    test::writeAll(dir.filePath("plant/t.mvw"), "t");
    test::writeAll(dir.filePath("plant/mine.txt"), "mine");
    test::writeAll(dir.filePath("secret.txt"), "secret");
    workingFolder = dir.filePath("plant");
    ASSERT_EQ(session.trust.opened(dir.filePath("plant/t.mvw")), TrustPolicy::Standing::Unknown);
    QSignalSpy problem(&dispatcher, &PressDispatcher::problem);
    tmpl.area(1).Clip = "..\\secret.txt";
    dispatcher.DispatchPress(30, 30);
    EXPECT_TRUE(clipboard.text().isEmpty());
    ASSERT_EQ(problem.size(), 1);
    EXPECT_TRUE(problem.first().first().toString().startsWith("La plantilla no és de confiança"));
    tmpl.area(2).Clip = "mine.txt";
    dispatcher.DispatchPress(60, 60);
    EXPECT_EQ(clipboard.text(), "mine");
    EXPECT_EQ(fired, (QStringList{"A", "B"}));
}

TEST_F(PressDispatcherTest, DrawingWithThePenStartsMovesAndEnds) {
    dispatcher.setDrawWithDevice(true);
    QSignalSpy draw(&dispatcher, &PressDispatcher::drawWithDevice);
    poll({pen(10, 10), pen(20, 20), lifted()});
    for (int i = 0; i < 10; ++i)
        poll({lifted()});
    EXPECT_EQ(draw.size(), 2) << "eleven empty polls keep drawing";
    poll({lifted()});
    ASSERT_EQ(draw.size(), 3);
    EXPECT_EQ(draw[0][2].toInt(), 0);
    EXPECT_EQ(draw[1][2].toInt(), 1);
    EXPECT_EQ(draw[2][2].toInt(), 2);
    EXPECT_EQ(beeps, 2) << "first empty poll and the end";
    EXPECT_TRUE(fired.isEmpty());
}

} // namespace
} // namespace mervak
