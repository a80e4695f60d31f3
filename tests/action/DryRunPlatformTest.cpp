#include "action/dryrun/DryRunPlatform.h"

#include "action/ActionRunner.h"
#include "support/QtPrinters.h"
#include "support/TestFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// Runs ActionTexts on the dry-run backends and keeps the lines they write.
struct DryRun {
    explicit DryRun(const DryRunOptions& options)
        : platform(
              [this](const QByteArray& line) {
                  EXPECT_TRUE(line.endsWith('\n')) << line;
                  lines.append(QString::fromUtf8(line.chopped(1)));
              },
              options),
          runner(
              platform.platform(), state, [options] { return options.targetTitle; },
              ActionRunner::noOwnWindows) {
        state.TargetWindow = platform.target();
        state.speechAvailable = true;
        platform.watch(runner);
    }

    QStringList run(const QString& text) {
        runner.SendActionText(text);
        for (int i = 0; i < 1000 && runner.isBusy(); ++i)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        EXPECT_FALSE(runner.isBusy()) << text;
        platform.writeState(state);
        return lines;
    }

    QStringList lines;
    ActionState state;
    DryRunPlatform platform;
    ActionRunner runner;
};

constexpr double kNoon = 43200.25; // a single click needs no wait at this time

struct Case {
    const char* name;
    QString title;
    QString text;
    QStringList lines; // before the state line
};

TEST(DryRunPlatform, WritesEachEffectAsOneLine) {
    const QString noState = QStringLiteral(
        R"({"effect":"state","register":"","pending_page":null,"launched":"","folder":"","clipboard":"clip"})");
    const Case cases[] = {
        {"keys into the target",
         "Notepad",
         "abc",
         {R"({"effect":"activate","title":"Notepad"})",
          R"({"effect":"keys","text":"abc","events":["a","b","c"]})", R"({"effect":"flush"})"}},
        {"a title begins the window's",
         "Notepad",
         "NOTE",
         {R"({"effect":"activate","title":"Notepad"})",
          R"({"effect":"keys","text":"NOTE","events":["N","O","T","E"]})",
          R"({"effect":"flush"})"}},
        {"no target types into the focused window",
         "",
         "+(ab)~",
         {R"({"effect":"keys","text":"+a+b{ENTER}","events":["+a","+b","{ENTER}"]})",
          R"({"effect":"flush"})"}},
        {"a bar types nothing", "|", "ab{|Pagina 2}", {}},
        {"quotes and backslashes are escaped",
         "",
         R"("\)",
         {R"({"effect":"keys","text":"\"\\","events":["\"","\\"]})", R"({"effect":"flush"})"}},
        {"accents stay as they are",
         "",
         QString::fromUtf8("l·l€"),
         {QString::fromUtf8(R"({"effect":"keys","text":"l·l€","events":["l","·","l","€"]})"),
          R"({"effect":"flush"})"}},
        {"waits are flushes",
         "",
         "{|Espera 2}",
         {R"({"effect":"flush"})", R"({"effect":"flush"})"}},
        {"mouse from the target's corner",
         "Notepad",
         "{|Mouse M 0 0 CD}",
         {R"({"effect":"mouse","actions":["move"],"x":100,"y":50,"absolute_x":3413,"absolute_y":3034})",
          R"({"effect":"mouse","actions":["right-down"],"x":100,"y":50,"absolute_x":3413,"absolute_y":3034})",
          R"({"effect":"mouse","actions":["right-up"],"x":100,"y":50,"absolute_x":3413,"absolute_y":3034})"}},
        {"speak",
         "",
         "{|Llegir Hola. Adeu}",
         {R"({"effect":"speak","text":"Hola; Adeu","speaker":0})"}},
        {"registry",
         "",
         R"({|REG [HKEY_CURRENT_USER\Software\X]Mida=dword:255})",
         {R"({"effect":"registry","key":"HKEY_CURRENT_USER\\Software\\X","name":"Mida","value":"dword:000000FF"})"}},
        {"typed clipboard",
         "",
         "{|RCW }",
         {R"({"effect":"keys","text":"clip","events":["c","l","i","p"]})",
          R"({"effect":"flush"})"}},
        {"close ends everything", "", "{|Tancar}x", {R"({"effect":"close"})"}},
    };
    for (const auto& c : cases) {
        DryRun dry(DryRunOptions{c.title, "clip", kNoon});
        const QStringList lines = dry.run(c.text);
        EXPECT_EQ(lines.mid(0, lines.size() - 1), c.lines) << c.name;
        EXPECT_EQ(lines.last(), noState) << c.name;
    }
}

TEST(DryRunPlatform, EndsWithTheState) {
    DryRun dry(DryRunOptions{"", "", kNoon});
    dry.state.memoryRegister = "4";
    dry.state.WorkingFolder = "/tmp/x";
    const QStringList lines = dry.run("{|M+ 3}{|Pagina 2}{|Executa a}{|Executa b}");
    EXPECT_EQ(
        lines,
        (QStringList{
            R"({"effect":"page","page":2})",
            R"({"effect":"launch","command":"a","folder":"/tmp/x","pid":4096})",
            R"({"effect":"launch","command":"b","folder":"/tmp/x","pid":4097})",
            R"({"effect":"state","register":"7","pending_page":2,"launched":"1000 1001 ","folder":"/tmp/x","clipboard":""})",
        }));
}

TEST(DryRunPlatform, ReportsFileCommandsWithTheirPaths) {
    QTemporaryDir dir;
    test::writeAll(dir.filePath("hola.txt"), "Hola\n");
    test::writeAll(dir.filePath("dibuix.bmp"), "BM");
    test::writeAll(dir.filePath("Joc.mvw"), "");
    const QString folder = QDir::cleanPath(dir.path());
    struct FileCase {
        const char* name;
        QString text;
        QStringList lines;
    };
    const FileCase cases[] = {
        {"text pasted with Ctrl+V",
         "{|Enganxa hola.txt}",
         {R"({"effect":"activate","title":"Notepad"})", R"({"effect":"paste","text":"Hola\n"})",
          R"({"effect":"keys","text":"^v","events":["^v"]})", R"({"effect":"flush"})"}},
        {"picture pasted",
         "{|Enganxa dibuix.bmp}",
         {R"({"effect":"activate","title":"Notepad"})",
          R"({"effect":"paste","picture":")" + folder + R"(/dibuix.bmp"})",
          R"({"effect":"keys","text":"^v","events":["^v"]})", R"({"effect":"flush"})"}},
        {"sound",
         "{|Sona so.WAV}",
         {R"({"effect":"sound","file":")" + folder + R"(/so.WAV","kind":"wave"})"}},
        {"template asked for at the end",
         "{|Carrega joc.mvw}a",
         {R"({"effect":"activate","title":"Notepad"})",
          R"({"effect":"keys","text":"a","events":["a"]})", R"({"effect":"flush"})",
          R"({"effect":"load-template","file":")" + folder + R"(/Joc.mvw"})"}},
    };
    for (const auto& c : cases) {
        DryRun dry(DryRunOptions{"Notepad", "", kNoon});
        dry.state.WorkingFolder = folder;
        const QStringList lines = dry.run(c.text);
        EXPECT_EQ(lines.mid(0, lines.size() - 1), c.lines) << c.name;
    }
}

TEST(DryRunPlatform, EscapesControlCharacters) {
    EXPECT_EQ(DryRunLine::quoted(QString::fromUtf8("a\x01\x1F\tb")), "\"a\\u0001\\u001f\\tb\"");
    EXPECT_EQ(DryRunLine::quoted(QString(QChar(0xD800))), "\"?\"");
}

} // namespace
} // namespace mervak
