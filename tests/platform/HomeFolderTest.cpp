#include "platform/HomeFolder.h"

#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(HomeFolder, ChoosesInOrderOfPrecedence) {
    QTemporaryDir portable;
    test::writeAll(portable.filePath("MERVAK.INI"), "[Mervak]\n");
    QTemporaryDir plain;
    struct Case {
        const char* name;
        HomeFolderInputs inputs;
        QString expected;
    };
    const Case cases[] = {
        {"option wins", {"/tmp/h1", "/tmp/env", "/xdg", "/home/u", portable.path()}, "/tmp/h1"},
        {"variable next", {"", "/tmp/env", "/xdg", "/home/u", portable.path()}, "/tmp/env"},
        {"portable install", {"", "", "/xdg", "/home/u", portable.path()}, portable.path()},
        {"XDG config", {"", "", "/xdg", "/home/u", plain.path()}, "/xdg/mervak"},
        {"default config", {"", "", "", "/home/u", plain.path()}, "/home/u/.config/mervak"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(chooseHomeFolder(c.inputs), c.expected) << c.name;
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
}

} // namespace
} // namespace mervak
