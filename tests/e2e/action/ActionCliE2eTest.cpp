#include "platform/x11/X11Connection.h"
#include "platform/x11/X11WindowSystem.h"
#include "support/CliRun.h"
#include "support/QtPrinters.h"
#include "support/TestFiles.h"
#include "support/Waiting.h"
#include "xharness/XSession.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

constexpr int kGiveUpMs = 15000; // a bound for a step that never happens

// `mervak-cli action` refusing to run without a display, then typing for real into
// an xterm on a private X display with openbox; the xterm's input lands byte for
// byte in a file. The pasted file comes last: the target fetches pasted content
// when it gets to it, so keys sent after the paste may overtake it, as after the
// classic posted paste.
TEST(ActionCliE2e, TypesKeysAndCommandsWhateverTheLayout) {
    qunsetenv("DISPLAY");
    const test::CliRun blind = test::runProgram(MERVAK_CLI, {"action", "abc"});
    EXPECT_EQ(blind.status, 1);
    EXPECT_TRUE(blind.err.contains("No es pot obrir la pantalla X")) << blind.err;

    test::XSession session;
    QString problem = test::XSession::missingPrograms(true);
    if (!problem.isEmpty() || !session.start(true, &problem))
        GTEST_SKIP() << problem.toStdString();
    X11Connection connection(session.display());
    X11WindowSystem windows(connection);
    QTemporaryDir folder;
    const QString file = folder.filePath("typed.out");
    ASSERT_NE(session.startTerminal("terminal", file, &problem), nullptr) << problem;
    ASSERT_TRUE(test::waitFor([&] { return QFile::exists(file); }, kGiveUpMs));
    ASSERT_TRUE(test::waitFor([&] { return windows.activate(windows.findByTitle("terminal")); },
                              kGiveUpMs));
    test::writeAll(folder.filePath("hola.txt"), QByteArray("Hola, m\xC3\xB3n!"));
    qputenv("DISPLAY", session.display().toLocal8Bit());
    const auto runCli = [](const QString& text, const QStringList& options) {
        return test::runProgram(MERVAK_CLI,
                                QStringList{"action", text, "--target", "terminal"} + options, {},
                                "C.UTF-8");
    };
    const test::CliRun run = runCli(
        QString::fromUtf8("àçñ l·l € ¿¡ ÀÇÑ ïü 1{+}1=2 {%}{^}{~}{(}{)}{{}{}} @#ß"
                          "^a+b%x{TAB}+(cd){ENTER}~{BS}{|Espera 3}{|RCW }[{|Enganxa hola.txt}"),
        {"--key-delay", "5", "--folder", folder.path(), "--clipboard", "z"});
    EXPECT_EQ(run.status, 0) << run.err;
    // Enter reaches the raw terminal as a carriage return.
    const QByteArray expected = "\xC3\xA0\xC3\xA7\xC3\xB1 l\xC2\xB7l \xE2\x82\xAC \xC2\xBF\xC2\xA1 "
                                "\xC3\x80\xC3\x87\xC3\x91 \xC3\xAF\xC3\xBC 1+1=2 %^~(){} @#\xC3\x9F"
                                "\x01"
                                "B\x1Bx\tCD\r\r\x7Fz[Hola, m\xC3\xB3n!";
    test::waitFor([&] { return test::readAll(file).size() >= expected.size(); }, kGiveUpMs);
    EXPECT_EQ(test::readAll(file), expected);
    EXPECT_EQ(runCli("x{NOPE}", {}).status, 1) << "a problem fails the run";
}

} // namespace
} // namespace mervak
