#include "RunnerBench.h"
#include "platform/TextEncoding.h"
#include "support/QtPrinters.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::RunnerBench;

QStringList typed(const QString& keys) {
    return {"activate Notepad - doc", "type " + keys, "flush"};
}

// Each row starts from the register in its next-to-last column; the clipboard holds "clip".
TEST(CommandInterpreter, CarriesOutEachCommand) {
    test::expectRuns({
        {"clear in any case", "{|cm }", {}, 0, "x", ""},
        {"add", "{|m+ 2 }", {}, 0, "5", "7"},
        {"subtract", "{|M- 3}", {}, 0, "10", "7"},
        {"a missing argument does nothing", "{|M+}{|M-}", {}, 0, "05", "05"},
        {"an overflow ends only its command", "{|M+ 1}{|M+ 99999}{|M+ 1}", {}, 1, "0", "2"},
        {"type the register", "{|M+ 1}{|RM }", typed("5"), 0, "4", "5"},
        {"inner register", "{|M+ {|RM}}", {}, 0, "3", "6"},
        {"inner clipboard", "{|M+ {|RCW }}", {}, 0, "", "clip"},
        {"inner choice", "{|M+ {|Tria [z]}}", {}, 0, "", "z"},
        {"a bar outside any block leaves it", "{|M+ a|b}", {}, 0, "x", "x"},
        {"type the clipboard", "{|RCW }", typed("clip")},
        {"choose and type", "{|Tria [uno]}", typed("uno")},
        {"choose in Spanish", "{|Escoge [uno]}", typed("uno")},
        {"conditional true", "{|SIM 5 {yes}{no}}", typed("yes"), 0, "5", "5"},
        {"conditional compares exactly", "{|SIM 5 {yes}{no}}", typed("no"), 0, "5 ", "5 "},
        {"conditional branch with commands", "{|Sim 5 {{|M+ 1}{|RM }}{no}}", typed("6"), 0, "5",
         "6"},
        {"wait of zero flushes once", "{|Espera 0}", {"flush"}},
        {"counting down from the bottom overflows after one", "{|ESPERA -32768}", {"flush"}, 1},
        {"unknown keyword does nothing", "{|Hola 2}x", typed("x")},
    });
}

TEST(CommandInterpreter, LaunchesProgramsAndKeepsTheirIds) {
    RunnerBench bench;
    bench.run("{|Executa  prog -x }{|EXECUTA other}{|Executa}");
    EXPECT_EQ(bench.log.lines, (QStringList{"launch prog -x in ", "launch other in "}));
    bench.launcher.setFailing(true);
    bench.run("{|Executa broken}");
    EXPECT_EQ(bench.state.launchedPrograms, "1A2B 1A2C ");
    EXPECT_TRUE(bench.problems.value(0).contains("broken")) << bench.problems;
}

TEST(CommandInterpreter, WritesTheRegistryOnlyFromAWholeKeyNameAndValue) {
    const std::pair<QString, int> cases[] = {
        {"{|Reg [HKEY_CURRENT_USER\\Software\\Mervak]Nom=Valor}", 1},
        {"{|Reg [HKEY_CURRENT_USER]Nom=Valor}", 0},
        {"{|Reg [HKEY_CURRENT_USER\\Software\\Mervak]Nom}", 0},
        {"{|Reg [HKEY_CURRENT_USER\\Software\\Mervak Nom=Valor}", 0},
        {"{|Reg HKEY_CURRENT_USER\\Software\\Mervak]Nom=V}", 0},
    };
    for (const auto& [text, writes] : cases) {
        RunnerBench bench;
        bench.registry.addKey("HKEY_CURRENT_USER\\Software\\Mervak");
        bench.run(text);
        EXPECT_EQ(bench.registry.writes().size(), writes) << text;
        EXPECT_TRUE(bench.problems.isEmpty()) << text;
    }
}

class FileCommands : public ::testing::Test {
protected:
    void SetUp() override {
        QDir(root.path()).mkpath("Plant/Sons");
        QDir(root.path()).mkpath("Plant/Sub");
        test::writeAll(plant("Sons/Bell.WAV"), "RIFF");
        test::writeAll(plant("Adeu.TXT"), toWindows1252(QStringLiteral("Adéu")));
        test::writeAll(plant("Dibuix.BMP"), "BM");
        test::writeAll(plant("Sub/Joc.mvw"), "x");
        bench.state.WorkingFolder = plant("");
    }
    QString plant(const QString& relative) const {
        return QDir::cleanPath(root.filePath("Plant/" + relative));
    }
    // Runs each text on the same bench; its effects and how many problems it reports.
    void expectEffects(std::initializer_list<std::tuple<QString, QStringList, int>> cases) {
        for (const auto& [text, effects, problems] : cases) {
            bench.log.lines.clear();
            bench.problems.clear();
            bench.run(text);
            EXPECT_EQ(bench.log.lines, effects) << text;
            EXPECT_EQ(bench.problems.size(), problems) << text << ": " << bench.problems;
        }
    }
    QTemporaryDir root;
    RunnerBench bench;
};

TEST_F(FileCommands, PlaysOnlyUpperCaseWaveAndMidiNames) {
    const QString bell = "sound wave " + plant("Sons/Bell.WAV");
    expectEffects({
        {"{|Sona music.mid}", {}, 0},
        {"{|Suena sons\\bell.WAV}x", QStringList{bell, "sound done"} + typed("x"), 0},
        {"{|Sona M.MID}x",
         QStringList{"sound midi " + plant("M.MID")} + typed("x") + QStringList{"sound done"}, 0},
        {"{|Sona \\Sons\\No.WAV}", {"sound wave " + plant("Sons/No.WAV"), "sound done"}, 0},
        {"{|Sona C:" + plant("Sons/Bell.WAV").replace('/', '\\') + "}", {bell, "sound done"}, 0},
    });
    bench.sound.setError("no audio output");
    bench.run("{|Sona X.WAV}y");
    EXPECT_EQ(bench.problems, QStringList{"no audio output"});
    EXPECT_TRUE(bench.log.lines.contains("type y"));
}

TEST_F(FileCommands, PastesFilesIntoTheTarget) {
    expectEffects({
        {"{|Enganxa adeu.txt}", QStringList{"clipboard clear", "clipboard text Adéu"} + typed("^v"),
         0},
        {"{|Engancha Dibuix.BMP}",
         QStringList{"clipboard clear", "clipboard picture " + plant("Dibuix.BMP")} + typed("^v"),
         0},
        {"{|ENGANXA notes.doc}", QStringList{"clipboard clear"} + typed("^v"), 0},
        {"{|Enganxa res.txt}x", QStringList{"clipboard clear"} + typed("x"), 1},
        {"{|Enganxa res.jpg}", {"clipboard clear"}, 1},
    });
    bench.state.TargetWindow = 999;
    expectEffects({{"{|Enganxa adeu.txt}", {"clipboard clear", "clipboard text Adéu"}, 1}});
}

TEST_F(FileCommands, LoadMovesTheFolderAndAsksForTheTemplateAtTheEnd) {
    const QString open = "open-template " + plant("Sub/Joc.mvw");
    bench.runner.setLanguage(Language::Spanish);
    expectEffects({
        {"{|Carrega sub\\joc.MVW}abc{|Sona X.WAV}",
         typed("abc") + QStringList{"sound wave " + plant("Sub/X.WAV"), "sound done", open}, 0},
        {"{|Carga Joc.mvw}", {open}, 0},
        {"{|Carrega nowhere.mvw}", {}, 1},
    });
    EXPECT_EQ(bench.state.WorkingFolder, plant("Sub"));
    EXPECT_TRUE(bench.state.templateToOpen.isEmpty());
    EXPECT_EQ(bench.problems,
              QStringList{Message(Language::Spanish, 15) + plant("Sub") + "/nowhere.mvw"});
}

TEST_F(FileCommands, SpeaksAndReadsFilesWhenSpeechIsAvailable) {
    bench.state.speakerNumber = 2;
    expectEffects({
        {"{|Leer Hola. Adéu.}", {"speak 2 Hola; Adéu;"}, 0},
        {"{|Llegeix /I:c /L:1 /V:100 /F:adeu.txt}",
         {"read-file /I:c /L:1 /V:100 /F:" + plant("Adeu.TXT")},
         0},
        {"{|Lee /f:Adeu.TXT}", {"read-file /f:" + plant("Adeu.TXT")}, 0},
        {"{|Llegeix /F:cap.txt}x", typed("x"), 1},
    });
    bench.state.speechAvailable = false;
    expectEffects({{"{|Llegir Hola}", {}, 0}, {"{|Llegeix /F:adeu.txt}", {}, 0}});
}

// A guard that refuses everything and notes what it was asked about.
class RefusingGuard : public CommandGuard {
public:
    bool permits(const GuardedCommand& command) const override {
        asked.append(command.keyword + ' ' + command.target);
        return false;
    }
    mutable QStringList asked;
};

// Only the guarded commands are skipped, each with a status line; the guard is
// asked with the program, the registry path or the file as resolved.
TEST_F(FileCommands, SkipsWhatTheGuardRefusesAndRunsTheRest) {
    RefusingGuard guard;
    bench.runner.setGuard(&guard);
    bench.state.speechAvailable = true;
    expectEffects({
        {"{|Executa touch x}a", typed("a"), 1},
        {"{|Reg [HKEY_CURRENT_USER\\Software\\M]Nom=1}", {}, 1},
        {"{|Carrega sub\\joc.mvw}", {}, 1},
        {"{|Enganxa adeu.txt}{|Sona Sons\\Bell.WAV}{|Llegeix /F:adeu.txt}", {}, 3},
        {"{|Sona quiet.wav}{|Enganxa x.doc}{|M+ 4}{|RM }{|Pagina 2}{|Llegir Hola}",
         QStringList{"clipboard clear"} + typed("^v") + typed("4") +
             QStringList{"page 2", "speak 0 Hola"},
         0},
    });
    EXPECT_EQ(guard.asked,
              (QStringList{"EXECUTA touch x", "REG HKEY_CURRENT_USER\\Software\\M\\Nom",
                           "CARREGA " + plant("Sub/Joc.mvw"), "ENGANXA " + plant("Adeu.TXT"),
                           "SONA " + plant("Sons/Bell.WAV"), "LLEGEIX " + plant("Adeu.TXT")}));
    EXPECT_TRUE(bench.state.launchedPrograms.isEmpty());
    EXPECT_EQ(bench.state.WorkingFolder, plant(""));
}

} // namespace
} // namespace mervak
