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

struct MemoryCase {
    const char* name;
    QString before;
    QString text;
    QString after;
    QStringList effects;
    int problems = 0;
};

TEST(CommandInterpreter, KeepsTheMemoryRegister) {
    const MemoryCase cases[] = {
        {"clear in lower case", "x", "{|cm }", "", {}},
        {"clear in upper case", "x", "{|CM }", "", {}},
        {"text onto an empty register", "", "{|M+ abc }", "abc", {}},
        {"then a number is appended", "", "{|M+ abc }{|M+ 5 }", "abc5", {}},
        {"arguments keep their case", "", "{|m+ AbC}", "AbC", {}},
        {"sum", "5", "{|M+ 2 }", "7", {}},
        {"subtract from text leaves it", "abc", "{|M- 3 }", "abc", {}},
        {"subtract from empty leaves it", "", "{|M- 3 }", "", {}},
        {"difference", "10", "{|M- 3}", "7", {}},
        {"missing argument leaves it", "05", "{|M+}{|M-}", "05", {}},
        {"overflow leaves the register", "32767", "{|M+ 1}", "32767", {}, 1},
        {"overflow downwards leaves the register", "-32768", "{|M- 1}", "-32768", {}, 1},
        {"overflow ends only its command", "0", "{|M+ 1}{|M+ 99999}{|M+ 1}", "2", {}, 1},
        {"type the register",
         "4",
         "{|M+ 1}{|RM }",
         "5",
         {"activate Notepad - doc", "type 5", "flush"}},
        {"register is typed as keys",
         "a+b",
         "{|RM }",
         "a+b",
         {"activate Notepad - doc", "type a+b", "flush"}},
        {"empty register types nothing", "", "{|RM }", "", {}},
        {"inner block in the argument", "3", "{|M+ {|RM }}", "6", {}},
        {"inner block without blank", "3", "{|M+ {|RM}}", "6", {}},
        {"bar outside any block leaves it", "x", "{|M+ a|b}", "x", {}},
        {"conditional true",
         "5",
         "{|SIM 5 {yes}{no}}",
         "5",
         {"activate Notepad - doc", "type yes", "flush"}},
        {"conditional false",
         "6",
         "{|SIM 5 {yes}{no}}",
         "6",
         {"activate Notepad - doc", "type no", "flush"}},
        {"conditional false without branch", "6", "{|SIM 5 {yes}}", "6", {}},
        {"conditional compares exactly",
         "5 ",
         "{|SIM 5 {yes}{no}}",
         "5 ",
         {"activate Notepad - doc", "type no", "flush"}},
        {"conditional on text", "gat", "{|Sim gat {{|M+ s}}{x}}", "gats", {}},
        {"conditional branch with commands",
         "5",
         "{|SIM 5 {{|M+ 1}{|RM }}{no}}",
         "6",
         {"activate Notepad - doc", "type 6", "flush"}},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        bench.state.memoryRegister = c.before;
        bench.run(c.text);
        EXPECT_EQ(bench.state.memoryRegister, c.after) << c.name;
        EXPECT_EQ(bench.log.lines, c.effects) << c.name;
        EXPECT_EQ(bench.problems.size(), c.problems) << c.name << ": " << bench.problems;
    }
}

TEST(CommandInterpreter, TypesTheClipboard) {
    RunnerBench bench;
    bench.clipboard.hold("7");
    bench.run("{|RCW }{|M+ {|RCW }}");
    EXPECT_EQ(bench.log.lines, (QStringList{"activate Notepad - doc", "type 7", "flush"}));
    EXPECT_EQ(bench.state.memoryRegister, "7");
}

TEST(CommandInterpreter, SetsThePendingPage) {
    const MemoryCase cases[] = {
        {"page", "", "{|Pagina 3}", "3", {"page 3"}},
        {"page from the register", "4", "{|PAGINA {|RM }}", "4", {"page 4"}},
        {"page rounds half to even", "", "{|Pagina 2.5}", "2", {"page 2"}},
        {"missing number sets nothing", "", "{|Pagina}", "none", {}},
        {"page beyond 16 bits sets nothing", "", "{|Pagina 40000}", "none", {}, 1},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        bench.state.memoryRegister = c.before;
        bench.run(c.text);
        const QString page = bench.state.pendingPage ? QString::number(*bench.state.pendingPage)
                                                     : QStringLiteral("none");
        EXPECT_EQ(page, c.after) << c.name;
        EXPECT_EQ(bench.log.lines, c.effects) << c.name;
        EXPECT_EQ(bench.problems.size(), c.problems) << c.name;
    }
}

TEST(CommandInterpreter, ChoosesAtRandomAndTypesTheChoice) {
    const MemoryCase cases[] = {
        {"one choice", "", "{|Tria [sol]}", "", {"activate Notepad - doc", "type sol", "flush"}},
        {"Spanish keyword",
         "",
         "{|Escoge [uno]}",
         "",
         {"activate Notepad - doc", "type uno", "flush"}},
        {"range of one number",
         "",
         "{|TRIA [7#7]}",
         "",
         {"activate Notepad - doc", "type 7", "flush"}},
        {"choice from the clipboard",
         "",
         "{|Tria [{|RCW }]}",
         "",
         {"activate Notepad - doc", "type clip", "flush"}},
        {"choice inside an argument", "", "{|M+ {|Tria [z]}}", "z", {}},
        {"range beyond 32 bits", "", "{|Tria [1#1e12]}", "", {}, 1},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        bench.clipboard.hold("clip");
        bench.run(c.text);
        EXPECT_EQ(bench.state.memoryRegister, c.after) << c.name;
        EXPECT_EQ(bench.log.lines, c.effects) << c.name;
        EXPECT_EQ(bench.problems.size(), c.problems) << c.name;
    }
}

TEST(CommandInterpreter, SeededChoicesRepeat) {
    QStringList typed[2];
    for (QStringList& run : typed) {
        RunnerBench bench;
        bench.runner.seedRandom(99);
        for (int i = 0; i < 20; ++i)
            bench.run("{|Tria [a#b#c#d]}");
        run = bench.log.lines.filter("type ");
    }
    EXPECT_EQ(typed[0], typed[1]);
    EXPECT_GT(QSet<QString>(typed[0].begin(), typed[0].end()).size(), 1) << typed[0];
}

TEST(CommandInterpreter, LaunchesProgramsAndKeepsTheirIds) {
    RunnerBench bench;
    bench.state.WorkingFolder = "/plant";
    bench.run("{|Executa  prog -x }{|EXECUTA other}{|Executa}");
    EXPECT_EQ(bench.state.launchedPrograms, "1A2B 1A2C ");
    EXPECT_EQ(bench.log.lines, (QStringList{"launch prog -x in /plant", "launch other in /plant"}));

    bench.launcher.setFailing(true);
    bench.run("{|Executa broken}");
    EXPECT_EQ(bench.state.launchedPrograms, "1A2B 1A2C ");
    ASSERT_EQ(bench.problems.size(), 1);
    EXPECT_TRUE(bench.problems[0].contains("broken"));
}

TEST(CommandInterpreter, WritesTheRegistry) {
    struct Case {
        const char* name;
        QString text;
        bool writes;
    };
    const Case cases[] = {
        {"string value", "{|Reg [HKEY_CURRENT_USER\\Software\\Mervak]Nom=Valor}", true},
        {"missing backslash", "{|Reg [HKEY_CURRENT_USER]Nom=Valor}", false},
        {"missing bracket", "{|Reg [HKEY_CURRENT_USER\\Software\\Mervak Nom=Valor}", false},
        {"missing equals", "{|Reg [HKEY_CURRENT_USER\\Software\\Mervak]Nom}", false},
        {"missing leading bracket", "{|Reg HKEY_CURRENT_USER\\Software\\Mervak]Nom=V}", false},
        {"unknown root", "{|Reg [HKEY_NOWHERE\\Software\\Mervak]Nom=Valor}", false},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        bench.registry.addKey("HKEY_CURRENT_USER\\Software\\Mervak");
        bench.run(c.text);
        EXPECT_EQ(bench.registry.writes().size(), c.writes ? 1 : 0) << c.name;
        EXPECT_TRUE(bench.problems.isEmpty()) << c.name;
    }
    RunnerBench bench;
    bench.registry.addKey("HKEY_CURRENT_USER\\Software\\Mervak");
    bench.run("{|REG [HKEY_CURRENT_USER\\Software\\Mervak]Mida=dword:255}");
    EXPECT_EQ(GetValue(bench.registry, "HKEY_CURRENT_USER\\Software\\Mervak", "Mida"),
              "dword:000000FF");
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
    QTemporaryDir root;
    RunnerBench bench;
};

TEST_F(FileCommands, PlaysOnlyUpperCaseWaveAndMidiNames) {
    struct Case {
        const char* name;
        QString text;
        QStringList effects;
    };
    const Case cases[] = {
        {"lower-case midi plays nothing", "{|Sona music.mid}", {}},
        {"upper-case midi plays",
         "{|Sona MUSIC.MID}",
         {"sound midi " + plant("MUSIC.MID"), "sound done"}},
        {"lower-case wave plays nothing", "{|Sona sons\\bell.wav}", {}},
        {"wave found whatever its folder's case",
         "{|Suena sons\\bell.WAV}",
         {"sound wave " + plant("Sons/Bell.WAV"), "sound done"}},
        {"leading backslash is still relative",
         "{|Sona \\sons\\bell.WAV}",
         {"sound wave " + plant("Sons/Bell.WAV"), "sound done"}},
        {"wave is waited for",
         "{|Sona sons\\Bell.WAV}x",
         {"sound wave " + plant("Sons/Bell.WAV"), "sound done", "activate Notepad - doc", "type x",
          "flush"}},
        {"midi plays on",
         "{|Sona M.MID}x",
         {"sound midi " + plant("M.MID"), "activate Notepad - doc", "type x", "flush",
          "sound done"}},
        {"absolute name",
         "{|Sona C:" + plant("Sons/Bell.WAV").replace('/', '\\') + "}",
         {"sound wave " + plant("Sons/Bell.WAV"), "sound done"}},
    };
    for (const auto& c : cases) {
        bench.log.lines.clear();
        bench.run(c.text);
        EXPECT_EQ(bench.log.lines, c.effects) << c.name;
    }
    EXPECT_TRUE(bench.problems.isEmpty()) << bench.problems;
}

TEST_F(FileCommands, WaitsForTheWaveToEnd) {
    bench.sound.holdPlays(true);
    bench.runner.SendActionText("{|Sona sons\\Bell.WAV}x");
    EXPECT_EQ(bench.log.lines.size(), 1) << bench.log.lines;
    bench.sound.releasePlays();
    bench.waitUntilIdle();
    EXPECT_EQ(bench.log.lines.size(), 5) << bench.log.lines;
}

TEST_F(FileCommands, ReportsASoundThatCannotPlay) {
    bench.sound.setError("no audio output");
    bench.run("{|Sona X.WAV}y");
    EXPECT_EQ(bench.problems, QStringList{"no audio output"});
    EXPECT_TRUE(bench.log.lines.contains("type y"));
}

TEST_F(FileCommands, PastesFilesIntoTheTarget) {
    struct Case {
        const char* name;
        QString text;
        QStringList effects;
        int problems = 0;
    };
    const Case cases[] = {
        {"text file",
         "{|Enganxa adeu.txt}",
         {"clipboard clear", "clipboard text Adéu", "activate Notepad - doc", "type ^v", "flush"}},
        {"picture",
         "{|Engancha Dibuix.BMP}",
         {"clipboard clear", "clipboard picture " + plant("Dibuix.BMP"), "activate Notepad - doc",
          "type ^v", "flush"}},
        {"other extension pastes the cleared clipboard",
         "{|ENGANXA notes.doc}",
         {"clipboard clear", "activate Notepad - doc", "type ^v", "flush"}},
        {"missing text file",
         "{|Enganxa res.txt}x",
         {"clipboard clear", "activate Notepad - doc", "type x", "flush"},
         1},
        {"missing picture", "{|Enganxa res.jpg}", {"clipboard clear"}, 1},
        {"missing name does nothing", "{|Enganxa}", {}},
    };
    for (const auto& c : cases) {
        bench.log.lines.clear();
        bench.problems.clear();
        bench.run(c.text);
        EXPECT_EQ(bench.log.lines, c.effects) << c.name;
        EXPECT_EQ(bench.problems.size(), c.problems) << c.name << ": " << bench.problems;
    }
}

TEST_F(FileCommands, PasteNeedsTheTargetWindow) {
    bench.state.TargetWindow = 999;
    bench.run("{|Enganxa adeu.txt}");
    EXPECT_EQ(bench.log.lines, (QStringList{"clipboard clear", "clipboard text Adéu"}));
    EXPECT_EQ(bench.problems.size(), 1);
}

TEST_F(FileCommands, LoadMovesTheFolderAndAsksForTheTemplateAtTheEnd) {
    bench.run("{|Carrega sub\\joc.MVW}abc{|Sona X.WAV}");
    EXPECT_EQ(bench.state.WorkingFolder, plant("Sub"));
    EXPECT_EQ(bench.log.lines, (QStringList{"activate Notepad - doc", "type abc", "flush",
                                            "sound wave " + plant("Sub/X.WAV"), "sound done",
                                            "open-template " + plant("Sub/Joc.mvw")}));
    EXPECT_TRUE(bench.state.templateToOpen.isEmpty());

    bench.log.lines.clear();
    bench.run("{|Carga Joc.mvw}");
    EXPECT_EQ(bench.log.lines, (QStringList{"open-template " + plant("Sub/Joc.mvw")}));
}

TEST_F(FileCommands, LoadOfAMissingTemplateChangesNothing) {
    bench.runner.setLanguage(Language::Spanish);
    bench.run("{|Carrega nowhere.mvw}");
    EXPECT_EQ(bench.state.WorkingFolder, plant(""));
    EXPECT_TRUE(bench.log.lines.isEmpty());
    EXPECT_EQ(bench.problems,
              QStringList{Message(Language::Spanish, 15) + plant("") + "/nowhere.mvw"});
}

TEST_F(FileCommands, SpeaksAndReadsFilesWhenSpeechIsAvailable) {
    struct Case {
        const char* name;
        bool available;
        QString text;
        QStringList effects;
    };
    const Case cases[] = {
        {"speak with dots made pauses", true, "{|Llegir Hola. Adéu.}", {"speak 2 Hola; Adéu;"}},
        {"Spanish keyword", true, "{|Leer uno}", {"speak 2 uno"}},
        {"speak the register", true, "{|Llegir {|RM }}", {"speak 2 42"}},
        {"no engine, no speech", false, "{|Llegir Hola}", {}},
        {"read a file",
         true,
         "{|Llegeix /I:c /L:1 /V:100 /F:adeu.txt}",
         {"read-file /I:c /L:1 /V:100 /F:" + plant("Adeu.TXT")}},
        {"Spanish keyword reads too",
         true,
         "{|Lee /f:Adeu.TXT}",
         {"read-file /f:" + plant("Adeu.TXT")}},
        {"no engine, no reading", false, "{|Llegeix /F:adeu.txt}", {}},
    };
    for (const auto& c : cases) {
        bench.log.lines.clear();
        bench.state.speechAvailable = c.available;
        bench.state.speakerNumber = 2;
        bench.state.memoryRegister = "42";
        bench.run(c.text);
        EXPECT_EQ(bench.log.lines, c.effects) << c.name;
    }
}

} // namespace
} // namespace mervak
