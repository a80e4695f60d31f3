#include "action/dryrun/DryRunPlatform.h"

#include "action/ActionRunner.h"
#include "support/QtPrinters.h"
#include "support/TestFiles.h"
#include "support/Waiting.h"

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
        EXPECT_TRUE(test::waitFor([this] { return !runner.isBusy(); })) << text;
        platform.writeState(state);
        return lines;
    }

    QStringList lines;
    ActionState state;
    DryRunPlatform platform;
    ActionRunner runner;
};

constexpr double kNoon = 43200.25; // a single click needs no wait at this time

TEST(DryRunPlatform, WritesEachEffectAsOneLineAndTheStateLast) {
    QTemporaryDir dir;
    test::writeAll(dir.filePath("hola.txt"), "Hola\n");
    test::writeAll(dir.filePath("dibuix.bmp"), "BM");
    test::writeAll(dir.filePath("Joc.mvw"), "");
    const QString folder = QDir::cleanPath(dir.path());
    DryRun dry(DryRunOptions{"Notepad", "", kNoon});
    dry.state.memoryRegister = "4";
    dry.state.WorkingFolder = folder;
    const QString activate = R"({"effect":"activate","title":"Notepad"})";
    const QString ctrlV = R"({"effect":"keys","text":"^v","events":["^v"]})";
    const QString flush = R"({"effect":"flush"})";
    const QString mouse = R"({"effect":"mouse","actions":["%1"],"x":100,"y":50,)"
                          R"("absolute_x":3413,"absolute_y":3034})";
    const QStringList lines =
        dry.run(R"({|M+ 3}{|Pagina 2}{|Executa a}{|Mouse M 0 0 CD}+(ab)~"\é{|Llegir Hola. Adeu})"
                R"({|REG [HKEY_CURRENT_USER\Software\X]Mida=dword:255}{|Carrega joc.mvw})"
                R"({|Enganxa hola.txt}{|Enganxa dibuix.bmp}{|Sona so.WAV})");
    EXPECT_EQ(
        lines,
        (QStringList{
            R"({"effect":"page","page":2})",
            R"({"effect":"launch","command":"a","folder":")" + folder + R"(","pid":4096})",
            mouse.arg("move"),
            mouse.arg("right-down"),
            mouse.arg("right-up"),
            activate,
            R"({"effect":"keys","text":"+a+b{ENTER}\"\\é","events":["+a","+b","{ENTER}","\"","\\","é"]})",
            flush,
            R"({"effect":"speak","text":"Hola; Adeu","speaker":0})",
            R"({"effect":"registry","key":"HKEY_CURRENT_USER\\Software\\X","name":"Mida","value":"dword:000000FF"})",
            activate,
            R"({"effect":"paste","text":"Hola\n"})",
            ctrlV,
            flush,
            activate,
            R"({"effect":"paste","picture":")" + folder + R"(/dibuix.bmp"})",
            ctrlV,
            flush,
            R"({"effect":"sound","file":")" + folder + R"(/so.WAV","kind":"wave"})",
            R"({"effect":"load-template","file":")" + folder + R"(/Joc.mvw"})",
            R"({"effect":"state","register":"7","pending_page":2,"launched":"1000 ","folder":")" +
                folder + R"(","clipboard":""})"}));

    DryRun closing(DryRunOptions{"", "", kNoon});
    EXPECT_EQ(closing.run("{|Tancar}x").first(), R"({"effect":"close"})");
}

TEST(DryRunPlatform, EscapesControlCharacters) {
    EXPECT_EQ(DryRunLine::quoted(QString::fromUtf8("a\x01\x1F\tb")), "\"a\\u0001\\u001f\\tb\"");
    EXPECT_EQ(DryRunLine::quoted(QString(QChar(0xD800))), "\"?\"");
}

} // namespace
} // namespace mervak
