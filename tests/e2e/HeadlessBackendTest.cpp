#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtProgramLauncher.h"
#include "platform/qt/SystemClock.h"
#include "platform/x11/WindowTitleMatch.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Keyboard.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11WindowSystem.h"
#include "support/TestFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <cmath>
#include <gtest/gtest.h>
#include <signal.h>

namespace mervak {
namespace {

// Converting a pixel to the absolute form and back gives the same pixel, on screens of
// any width; coordinates off the screen stay on its edge.
TEST(PointerConversionTest, AbsoluteCoordinatesRoundTripToTheSamePixel) {
    for (int extent : {1, 2, 3, 7, 640, 1024, 1280, 1366, 1920, 4096, 65535}) {
        for (int pixel = 0; pixel < extent; ++pixel) {
            const int absolute = static_cast<int>(std::nearbyint(pixel * 65535.0 / extent));
            ASSERT_EQ(pixelFromAbsolute(absolute, extent), pixel) << extent;
        }
    }
    struct Case {
        int absolute;
        int extent;
        int pixel;
    };
    const Case edges[] = {{-100, 1280, 0}, {70000, 1280, 1279}, {65535, 1280, 1279},
                          {0, 1280, 0},    {5000, 0, 0},        {5000, -3, 0}};
    for (const Case& c : edges) {
        EXPECT_EQ(pixelFromAbsolute(c.absolute, c.extent), c.pixel)
            << c.absolute << " " << c.extent;
    }
}

TEST(WindowTitleMatchTest, ExactTitleElsePrefixFromTheTopOfTheStack) {
    const QList<WindowInfo> windows = {{1, QStringLiteral("Bloc de notes - sense títol")},
                                       {2, QStringLiteral("Bloc")},
                                       {3, QStringLiteral("Bloc de notes - carta")},
                                       {4, QStringLiteral("ÀLBUM")}};
    struct Case {
        const char* title;
        WindowId expected;
    };
    const Case cases[] = {
        {"Bloc", 2},
        {"bloc DE NOTES", 3},
        {"Bloc de notes - sense títol", 1},
        {"àlbum", 4},
        {"Bloc de notes - carta llarga", kNoWindow},
        {"notes", kNoWindow},
        {"", kNoWindow},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(findWindowByTitle(windows, QString::fromUtf8(c.title)), c.expected) << c.title;
    }
    EXPECT_EQ(findWindowByTitle({}, QStringLiteral("Bloc")), kNoWindow);
}

TEST(QtProgramLauncherTest, SplitsCommandLinesIntoProgramAndArguments) {
    struct Case {
        const char* line;
        QStringList words;
    };
    const Case cases[] = {
        {"joc.sh", {"joc.sh"}},
        {"  xterm   -T  title ", {"xterm", "-T", "title"}},
        {"\"/opt/my games/joc\" \"a b\" c", {"/opt/my games/joc", "a b", "c"}},
        {"say \"\"\"hi\"\"\"", {"say", "\"hi\""}},
        {"\"unclosed quote", {"unclosed quote"}},
        {"", {}},
        {"   ", {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(splitCommandLine(QString::fromUtf8(c.line)), c.words) << c.line;
    }
}

// Waits until a started program has written `file`.
QByteArray waitForFile(const QString& file) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!QFile::exists(file) && elapsed.elapsed() < 10000) {
        QThread::msleep(5);
    }
    QThread::msleep(20);
    return test::readAll(file).trimmed();
}

TEST(QtProgramLauncherTest, StartsProgramsDetachedAndReturnsTheirProcessId) {
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    QtProgramLauncher launcher;
    const QString pidFile = folder.filePath(QStringLiteral("pid"));
    const std::optional<std::int64_t> pid = launcher.start(
        QStringLiteral("sh -c \"echo $$ > '%1'; sleep 30\"").arg(pidFile), folder.path());
    ASSERT_TRUE(pid.has_value());
    EXPECT_EQ(waitForFile(pidFile), QByteArray::number(*pid));
    EXPECT_EQ(::kill(static_cast<pid_t>(*pid), SIGTERM), 0) << "the program is still running";
}

// A program beside the working folder is found there, runs there, and gets its arguments.
TEST(QtProgramLauncherTest, RunsProgramsFromTheWorkingFolder) {
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    const QString script = folder.filePath(QStringLiteral("joc.sh"));
    test::writeAll(script, "#!/bin/sh\necho \"$(pwd) $1\" > out.txt\n");
    QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QtProgramLauncher launcher;
    const QString expected = QDir(folder.path()).canonicalPath() + QStringLiteral(" un");
    const QString lines[] = {QStringLiteral("joc.sh un"), QStringLiteral("./joc.sh un")};
    for (const QString& line : lines) {
        QFile::remove(folder.filePath(QStringLiteral("out.txt")));
        ASSERT_TRUE(launcher.start(line, folder.path()).has_value()) << line.toStdString();
        EXPECT_EQ(waitForFile(folder.filePath(QStringLiteral("out.txt"))), expected.toUtf8())
            << line.toStdString();
    }
}

TEST(QtProgramLauncherTest, CommandLinesThatCannotStartGiveNothing) {
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    test::writeAll(folder.filePath(QStringLiteral("notes.txt")), "not a program");
    QtProgramLauncher launcher;
    const char* lines[] = {
        "",          "   ",        "/nonexistent/program", "mervak-no-such-program-anywhere",
        "notes.txt", "./notes.txt"};
    for (const char* line : lines) {
        EXPECT_FALSE(launcher.start(QString::fromUtf8(line), folder.path()).has_value()) << line;
    }
}

// Every backend answers plainly, without crashing, when there is no display.
TEST(NoDisplayTest, BackendsReportAMissingDisplayInWords) {
    const QByteArray saved = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    X11Connection unset;
    qputenv("DISPLAY", saved);
    EXPECT_FALSE(unset.isOpen());
    EXPECT_EQ(unset.state(), X11Connection::State::NoDisplayNamed);

    X11Connection connection(QStringLiteral(":4093"));
    ASSERT_FALSE(connection.isOpen());
    EXPECT_EQ(connection.state(), X11Connection::State::NotOpened);

    X11Keyboard keyboard(connection);
    EXPECT_EQ(keyboard.type({{Key::Character, U'a', {}}}),
              (TypingError{TypingError::Reason::DisplayNotOpened, {}, QStringLiteral(":4093")}));
    bool flushed = false;
    keyboard.flush([&flushed] { flushed = true; });
    QElapsedTimer elapsed;
    elapsed.start();
    while (!flushed && elapsed.elapsed() < 5000) {
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(flushed) << "a wait for keys that cannot be sent still ends";

    X11WindowSystem windows(connection);
    EXPECT_TRUE(windows.topLevelWindows().isEmpty());
    EXPECT_EQ(windows.findByTitle(QStringLiteral("x")), kNoWindow);
    EXPECT_FALSE(windows.activate(42));
    EXPECT_EQ(windows.activeWindow(), kNoWindow);
    EXPECT_FALSE(windows.rect(42).has_value());
    EXPECT_EQ(windows.screenSize(), QSize());
    EXPECT_FALSE(windows.windowManagerRuns());

    X11Pointer pointer(connection);
    pointer.send(PointerFlag::Move | PointerFlag::Absolute | PointerFlag::LeftDown, 1, 1);
    EXPECT_EQ(pointer.position(), QPoint());
}

// A tool without a GUI application has no clipboard; it says so by holding nothing.
TEST(QtClipboardTest, WithoutAGuiApplicationHoldsNothing) {
    QtClipboard clipboard;
    clipboard.setText(QStringLiteral("abc"));
    clipboard.clear();
    EXPECT_EQ(clipboard.text(), QString());
    EXPECT_FALSE(clipboard.setPictureFromFile(test::dataPath(QStringLiteral("x11/picture.bmp"))));
}

TEST(SystemClockTest, GivesTheTimeOfDayAndAMonotonicCount) {
    SystemClock clock;
    const double seconds = clock.secondsSinceMidnight();
    EXPECT_GE(seconds, 0.0);
    EXPECT_LT(seconds, 86400.0);
    const std::int64_t before = clock.monotonicMs();
    QThread::msleep(20);
    EXPECT_GE(clock.monotonicMs(), before + 20);
}

} // namespace
} // namespace mervak
