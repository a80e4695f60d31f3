#include "support/QtPrinters.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

constexpr int kCliGiveUpMs = 30000;

struct Output {
    int exitCode = -1;
    QStringList lines;
    QString errors;
};

Output runCli(const QStringList& arguments, const QString& folder = QDir::currentPath()) {
    QProcess cli;
    cli.setWorkingDirectory(folder);
    cli.start(MERVAK_CLI, QStringList{"action"} + arguments);
    EXPECT_TRUE(cli.waitForFinished(kCliGiveUpMs)) << arguments;
    QStringList lines = QString::fromUtf8(cli.readAllStandardOutput()).split('\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    return {cli.exitCode(), lines, QString::fromUtf8(cli.readAllStandardError())};
}

TEST(ActionCliDryRun, PrintsTheEffectsAndTheStateLast) {
    QTemporaryDir folder;
    test::writeAll(folder.filePath("Joc.mvw"), "");
    const QString path = QDir::cleanPath(folder.path());
    struct Case {
        const char* name;
        QStringList arguments;
        QStringList lines;
    };
    const Case cases[] = {
        {"keys and a page",
         {"--dry-run", "--target", "Bloc de notes", "ab{|Pagina 2}"},
         {R"({"effect":"activate","title":"Bloc de notes"})",
          R"({"effect":"keys","text":"ab","events":["a","b"]})", R"({"effect":"flush"})",
          R"({"effect":"page","page":2})",
          R"({"effect":"state","register":"","pending_page":2,"launched":"","folder":")" + path +
              R"(","clipboard":""})"}},
        {"register, clipboard and a seeded pick",
         {"--dry-run", "--register", "4", "--clipboard", "x", "--seed", "7",
          "{|M+ 1}{|Tria [1#1]}{|RCW }"},
         {R"({"effect":"keys","text":"1","events":["1"]})", R"({"effect":"flush"})",
          R"({"effect":"keys","text":"x","events":["x"]})", R"({"effect":"flush"})",
          R"({"effect":"state","register":"5","pending_page":null,"launched":"","folder":")" +
              path + R"(","clipboard":"x"})"}},
        {"template named by CARREGA",
         {"--dry-run", "--folder", path, "--target", "|", "{|Carrega joc.mvw}{|Executa joc}"},
         {R"({"effect":"launch","command":"joc","folder":")" + path + R"(","pid":4096})",
          R"({"effect":"load-template","file":")" + path + R"(/Joc.mvw"})",
          R"({"effect":"state","register":"","pending_page":null,"launched":"1000 ","folder":")" +
              path + R"(","clipboard":""})"}},
    };
    for (const auto& c : cases) {
        const Output output = runCli(c.arguments, path);
        EXPECT_EQ(output.exitCode, 0) << c.name << ": " << output.errors;
        EXPECT_EQ(output.lines, c.lines) << c.name;
    }
}

TEST(ActionCliDryRun, RefusesBadInputWithAReason) {
    struct Case {
        const char* name;
        QStringList arguments;
        int exitCode;
        const char* says;
    };
    const Case cases[] = {
        {"malformed notation", {"--dry-run", "a(b"}, 1, "hi ha un \"(\" que no es tanca"},
        {"missing text", {"--dry-run"}, 2, "Falta el text d'accions"},
        {"two texts", {"--dry-run", "a", "b"}, 2, "Només hi pot haver un text"},
        {"unknown option", {"--dry-run", "--speed", "a"}, 2, "Opció desconeguda: --speed"},
        {"option without value", {"a", "--target"}, 2, "Falta el valor després de --target"},
        {"bad seed", {"--dry-run", "--seed", "-1", "a"}, 2, "--seed"},
        {"key delay too long", {"--key-delay", "1001", "a"}, 2, "--key-delay"},
        {"missing folder", {"--dry-run", "--folder", "/no/such/folder", "a"}, 2, "/no/such/folder"},
    };
    for (const auto& c : cases) {
        const Output output = runCli(c.arguments);
        EXPECT_EQ(output.exitCode, c.exitCode) << c.name;
        EXPECT_TRUE(output.errors.contains(QString::fromUtf8(c.says)))
            << c.name << ": " << output.errors;
    }
}

TEST(ActionCliDryRun, SameSeedSamePicks) {
    const QStringList arguments = {"--dry-run", "--seed", "42",
                                   "{|Tria [a#b#c#d#e#f]}{|Tria [1#1000]}{|Tria [x#y]}"};
    const Output first = runCli(arguments);
    EXPECT_EQ(first.exitCode, 0);
    EXPECT_EQ(runCli(arguments).lines, first.lines);
}

} // namespace
} // namespace mervak
