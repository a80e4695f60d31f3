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
        {"option wins",
         {{"--home", "/tmp/h1", "x.mvw"}, "/tmp/env", "/xdg", "/home/u", portable.path()},
         "/tmp/h1"},
        {"option with =", {{"--home=/tmp/h2"}, "/tmp/env", "", "/home/u", plain.path()}, "/tmp/h2"},
        {"variable next", {{}, "/tmp/env", "/xdg", "/home/u", portable.path()}, "/tmp/env"},
        {"portable install", {{}, "", "/xdg", "/home/u", portable.path()}, portable.path()},
        {"XDG config", {{}, "", "/xdg", "/home/u", plain.path()}, "/xdg/mervak"},
        {"default config", {{}, "", "", "/home/u", plain.path()}, "/home/u/.config/mervak"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(chooseHomeFolder(c.inputs), c.expected) << c.name;
}

TEST(HomeFolder, TheOptionIsNotTakenForATemplate) {
    EXPECT_EQ(withoutHomeOption({"--home", "/h", "joc.mvw"}), QStringList{"joc.mvw"});
    EXPECT_EQ(withoutHomeOption({"joc.mvw", "--home=/h"}), QStringList{"joc.mvw"});
    EXPECT_EQ(withoutHomeOption({"joc.mvw"}), QStringList{"joc.mvw"});
}

} // namespace
} // namespace mervak
