#include "platform/Autostart.h"
#include "platform/HomeFolder.h"
#include "platform/SingleInstance.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mervak {
namespace {

TEST(HomeFolder, ChoosesInOrderOfPrecedence) {
    QTemporaryDir portable;
    test::writeAll(portable.filePath("MERVAK.INI"), "[Mervak]\n");
    QTemporaryDir plain;
    // --home, MERVAK_HOME, XDG_CONFIG_HOME, HOME and the program's folder.
    const std::pair<HomeFolderInputs, QString> cases[] = {
        {{"/tmp/h1", "/tmp/env", "/xdg", "/home/u", portable.path()}, "/tmp/h1"},
        {{"", "/tmp/env", "/xdg", "/home/u", portable.path()}, "/tmp/env"},
        {{"", "", "/xdg", "/home/u", portable.path()}, portable.path()},
        {{"", "", "/xdg", "/home/u", plain.path()}, "/xdg/mervak"},
        {{"", "", "", "/home/u", plain.path()}, "/home/u/.config/mervak"},
    };
    for (const auto& [inputs, expected] : cases)
        EXPECT_EQ(chooseHomeFolder(inputs), expected);
}

TEST(HomeFolder, TheProgramsCommandLine) {
    const struct {
        QStringList arguments;
        const char* home;
        const char* templatePath;
        const char* error;
    } cases[] = {
        {{"--home", "/h", "joc.mvw"}, "/h", "/cwd/joc.mvw", ""},
        {{"plant/joc.mvw", "--home=/h"}, "/h", "/cwd/plant/joc.mvw", ""},
        {{"../joc.mvw"}, "", "/joc.mvw", ""},
        {{"/classe/joc.mvw"}, "", "/classe/joc.mvw", ""},
        {{"C:\\plant\\joc.mvw"}, "", "C:\\plant\\joc.mvw", ""},
        {{"--", "-joc.mvw"}, "", "/cwd/-joc.mvw", ""},
        {{"--speed"}, "", "", "Opció desconeguda: --speed"},
        {{"-x", "joc.mvw"}, "", "/cwd/joc.mvw", "Opció desconeguda: -x"},
        {{"--help=1"}, "", "", "Aquesta opció no pren cap valor: --help=1"},
        {{"joc.mvw", "--home"}, "", "/cwd/joc.mvw", "Falta el valor després de --home"},
        {{"a.mvw", "b.mvw"}, "", "/cwd/a.mvw", "Només es pot obrir una plantilla: b.mvw"},
    };
    for (const auto& c : cases) {
        const ProgramCommandLine line =
            parseProgramCommandLine(QStringList{"mervak"} + c.arguments, "/cwd");
        const QString name = c.arguments.join(u' ');
        EXPECT_EQ(line.homeOption, QString::fromUtf8(c.home)) << name;
        EXPECT_EQ(line.templatePath, QString::fromUtf8(c.templatePath)) << name;
        EXPECT_EQ(line.error ? line.error->text(Language::Catalan) : QString(),
                  QString::fromUtf8(c.error))
            << name;
    }
    EXPECT_TRUE(parseProgramCommandLine({"mervak", "--help"}, "/cwd").help);
    EXPECT_TRUE(parseProgramCommandLine({"mervak", "--version"}, "/cwd").version);
    EXPECT_TRUE(parseProgramCommandLine({"mervak", "--locked", "a.mvw"}, "/cwd").locked);
}

TEST(SingleInstance, ASecondCopyIsRefusedUntilTheFirstEnds) {
    QTemporaryDir runtime;
    {
        SingleInstance first(runtime.path());
        ASSERT_TRUE(first.acquire());
        SingleInstance second(runtime.path());
        EXPECT_FALSE(second.acquire());
    }
    SingleInstance third(runtime.path());
    EXPECT_TRUE(third.acquire());
}

TEST(SingleInstance, TheLockOfACopyThatDiedIsTakenOver) {
    QTemporaryDir runtime;
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        SingleInstance dying(runtime.path());
        _exit(dying.acquire() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_EQ(WEXITSTATUS(status), 0);
    SingleInstance next(runtime.path());
    EXPECT_TRUE(next.acquire());
}

// Set with the quoting of desktop entries, and removed the same way.
TEST(Autostart, WritesAnEntryThatRunsTheTemplateAndRemovesIt) {
    QTemporaryDir config;
    const Autostart autostart(config.path());
    EXPECT_FALSE(autostart.isSet());
    const QStringList command{"/usr/bin/mervak", "--home", "/home/u/.config/mervak",
                              "/home/u/Fulls de 5%/\"a\" $x\\y.mvw"};
    ASSERT_FALSE(autostart.set(command));
    const QByteArray entry = test::readAll(autostart.entryPath());
    EXPECT_TRUE(entry.contains("Exec=/usr/bin/mervak --home /home/u/.config/mervak "
                               "\"/home/u/Fulls de 5%%/\\\\\"a\\\\\" \\\\$x\\\\\\\\y.mvw\"\n"))
        << entry.constData();
    ASSERT_FALSE(autostart.remove());
    EXPECT_FALSE(autostart.isSet());
}

} // namespace
} // namespace mervak
