#include "platform/WindowTitleMatch.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtProgramLauncher.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Keyboard.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11WindowSystem.h"
#include "support/TestFiles.h"
#include "support/Waiting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>
#include <signal.h>

namespace mervak {
namespace {

// Converting a pixel to the absolute form and back gives the same pixel, on screens of
// any width; coordinates off the screen stay on its edge.
TEST(PointerConversionTest, AbsoluteCoordinatesRoundTripToTheSamePixel) {
    for (int extent : {1, 3, 1280, 1366, 65535}) {
        for (int pixel = 0; pixel < extent; ++pixel) {
            const int absolute = static_cast<int>(std::nearbyint(pixel * 65535.0 / extent));
            ASSERT_EQ(pixelFromAbsolute(absolute, extent), pixel) << extent;
        }
    }
    EXPECT_EQ(pixelFromAbsolute(-100, 1280), 0);
    EXPECT_EQ(pixelFromAbsolute(70000, 1280), 1279);
    EXPECT_EQ(pixelFromAbsolute(5000, 0), 0);
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
        {"BLOC", 2},  {"bloc DE NOTES", 3},
        {"àlbum", 4}, {"Bloc de notes - carta llarga", 0},
        {"notes", 0}, {"", 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(findWindowByTitle(windows, QString::fromUtf8(c.title)), c.expected) << c.title;
    }
}

TEST(QtProgramLauncherTest, SplitsCommandLinesIntoProgramAndArguments) {
    struct Case {
        const char* line;
        QStringList words;
    };
    const Case cases[] = {
        {"  xterm   -T  title ", {"xterm", "-T", "title"}},
        {"\"/opt/my games/joc\" \"a b\" c", {"/opt/my games/joc", "a b", "c"}},
        {"say \"\"\"hi\"\"\"", {"say", "\"hi\""}},
        {"\"unclosed quote", {"unclosed quote"}},
        {"   ", {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(splitCommandLine(QString::fromUtf8(c.line)), c.words) << c.line;
    }
}

// A program beside the working folder is found there, runs there detached, gets its
// arguments, and its process id is the one returned.
TEST(QtProgramLauncherTest, StartsProgramsDetachedFromTheWorkingFolder) {
    QTemporaryDir folder;
    const QString script = folder.filePath(QStringLiteral("joc.sh"));
    test::writeAll(script, "#!/bin/sh\necho \"$$ $(pwd) $1\" > out.tmp\nmv out.tmp out.txt\n"
                           "exec sleep 30\n");
    QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString out = folder.filePath(QStringLiteral("out.txt"));
    QtProgramLauncher launcher;
    for (const char* line : {"joc.sh un", "./joc.sh un"}) {
        QFile::remove(out);
        const std::optional<std::int64_t> pid =
            launcher.start(QString::fromUtf8(line), folder.path());
        ASSERT_TRUE(pid.has_value()) << line;
        ASSERT_TRUE(test::waitFor([&] { return QFile::exists(out); })) << line;
        EXPECT_EQ(test::readAll(out).trimmed(), QByteArray::number(*pid) + " " +
                                                    QDir(folder.path()).canonicalPath().toUtf8() +
                                                    " un")
            << line;
        EXPECT_EQ(::kill(static_cast<pid_t>(*pid), SIGTERM), 0) << "the program is still running";
    }
    test::writeAll(folder.filePath(QStringLiteral("notes.txt")), "not a program");
    for (const char* line : {"", "/nonexistent/program", "mervak-no-such-program", "./notes.txt"}) {
        EXPECT_FALSE(launcher.start(QString::fromUtf8(line), folder.path()).has_value()) << line;
    }
}

// Every backend answers plainly, without crashing, when there is no display.
TEST(NoDisplayTest, BackendsReportAMissingDisplayInWords) {
    const QByteArray saved = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    X11Connection unset;
    qputenv("DISPLAY", saved);
    EXPECT_EQ(unset.state(), X11Connection::State::NoDisplayNamed);

    X11Connection connection(QStringLiteral(":4093"));
    ASSERT_FALSE(connection.isOpen());
    EXPECT_EQ(connection.state(), X11Connection::State::NotOpened);
    X11Keyboard keyboard(connection);
    EXPECT_EQ(keyboard.type({{Key::Character, U'a', {}}}),
              (TypingError{TypingError::Reason::DisplayNotOpened, {}, QStringLiteral(":4093")}));
    bool flushed = false;
    keyboard.flush([&flushed] { flushed = true; });
    EXPECT_TRUE(test::waitFor([&flushed] { return flushed; }))
        << "a wait for keys that cannot be sent still ends";

    X11WindowSystem windows(connection);
    EXPECT_TRUE(windows.topLevelWindows().isEmpty());
    EXPECT_FALSE(windows.activate(42));
    EXPECT_EQ(windows.activeWindow(), kNoWindow);
    EXPECT_FALSE(windows.rect(42).has_value());
    X11Pointer pointer(connection);
    pointer.send(PointerFlag::Move | PointerFlag::Absolute | PointerFlag::LeftDown, 1, 1);
    EXPECT_EQ(pointer.position(), QPoint());
}

// A tool without a GUI application has no clipboard; it says so by holding nothing.
TEST(QtClipboardTest, WithoutAGuiApplicationHoldsNothing) {
    QtClipboard clipboard;
    clipboard.setText(QStringLiteral("abc"));
    EXPECT_EQ(clipboard.text(), QString());
    EXPECT_FALSE(clipboard.setPictureFromFile(test::dataPath(QStringLiteral("x11/picture.bmp"))));
}

} // namespace
} // namespace mervak
