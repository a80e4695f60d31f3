#include "support/CliRun.h"
#include "support/QtPrinters.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

test::CliRun runCli(const QStringList& arguments, const QString& folder = QDir::currentPath()) {
    return test::runProgram(MERVAK_CLI, QStringList{"action"} + arguments, folder);
}

// Run in the build folder, so that the state's folder shows --folder at work.
TEST(ActionCliDryRun, PrintsTheEffectsAndTheStateLast) {
    QTemporaryDir folder;
    test::writeAll(folder.filePath("Joc.mvw"), "");
    const QString path = QDir::cleanPath(folder.path());
    const test::CliRun run =
        runCli({"--dry-run", "--target", "Bloc de notes", "--register", "4", "--clipboard", "x",
                "--folder", path, "{|M+ 1}{|Pagina 2}{|RCW }{|Carrega joc.mvw}"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(
        run.lines(),
        (QStringList{R"({"effect":"page","page":2})",
                     R"({"effect":"activate","title":"Bloc de notes"})",
                     R"({"effect":"keys","text":"x","events":["x"]})", R"({"effect":"flush"})",
                     R"({"effect":"load-template","file":")" + path + R"(/Joc.mvw"})",
                     R"({"effect":"state","register":"5","pending_page":2,"launched":"",)"
                     R"("folder":")" +
                         path + R"(","clipboard":"x"})"}));
}

TEST(ActionCliDryRun, RefusesBadInputWithAReason) {
    const std::tuple<QStringList, int, const char*> cases[] = {
        {{"--dry-run", "a(b"}, 1, "hi ha un \"(\" que no es tanca"},
        {{"--dry-run"}, 2, "Falta el text d'accions"},
        {{"--dry-run", "a", "b"}, 2, "Només hi pot haver un text"},
        {{"--dry-run", "--speed", "a"}, 2, "Opció desconeguda: --speed"},
        {{"a", "--target"}, 2, "Falta el valor després de --target"},
        {{"--dry-run", "--seed", "-1", "a"}, 2, "--seed"},
        {{"--key-delay", "1001", "a"}, 2, "--key-delay"},
        {{"--dry-run", "--folder", "/no/such/folder", "a"}, 2, "/no/such/folder"},
    };
    for (const auto& [arguments, status, says] : cases) {
        const test::CliRun run = runCli(arguments);
        EXPECT_EQ(run.status, status) << arguments;
        EXPECT_TRUE(run.err.contains(QString::fromUtf8(says))) << arguments << ": " << run.err;
    }
}

TEST(ActionCliDryRun, SameSeedSamePicks) {
    const QStringList arguments = {"--dry-run", "--seed", "42",
                                   "{|Tria [a#b#c#d#e#f]}{|Tria [1#1000]}{|Tria [x#y]}"};
    const test::CliRun first = runCli(arguments);
    EXPECT_EQ(first.status, 0);
    EXPECT_EQ(first.lines().filter(R"("effect":"keys")").size(), 3) << first.out;
    EXPECT_EQ(runCli(arguments).lines(), first.lines());
}

} // namespace
} // namespace mervak
