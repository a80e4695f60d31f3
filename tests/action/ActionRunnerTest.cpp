#include "RunnerBench.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>
#include <random>

namespace mervak {
namespace {

using test::RunnerBench;

const QStringList kTypedX = {"activate Notepad - doc", "type x", "flush"};
const QStringList kTypedA = {"type a", "flush"}; // into the focused window

TEST(ActionRunner, RunsKeyRunsAndBlocksInOrder) {
    test::expectRuns({
        {"empty text does nothing", "", {}},
        {"keys with accents and chords", "Adéu^s{ENTER}",
         QStringList{"activate Notepad - doc", "type Adéu^s{ENTER}", "flush"}},
        {"each key run activates the target", "abc{|Espera 2}x",
         QStringList{"activate Notepad - doc", "type abc", "flush", "flush", "flush"} + kTypedX},
        {"a block alone activates nothing", "{|Pagina 2}", {"page 2"}},
        {"malformed keys type nothing, the rest runs", "a{NOPE}{|Espera 1}x",
         QStringList{"flush"} + kTypedX, 1},
        {"nested texts run in place", "{|RM }x", QStringList{"page 3"} + kTypedX + kTypedX, 0,
         "{|Pagina 3}x", "{|Pagina 3}x"},
        {"a register that types itself stops", "{|RM }a", {}, 1, "{|RM }", "{|RM }"},
        {"a register that doubles itself stops", "{|RM }", {}, 1, "{|RM }{|RM }", "{|RM }{|RM }"},
    });
}

struct TitleCase {
    const char* name;
    QString title;
    QString text;
    QStringList effects;
    QString registerAfter;
    const char* says = ""; // in the first problem; nothing when empty
    void (*arrange)(RunnerBench&) = nullptr;
};

void focusNotepad(RunnerBench& bench) {
    bench.windows.focus(bench.notepad);
}

void notepadIsOurs(RunnerBench& bench) {
    bench.ownWindows = {bench.notepad};
    bench.windows.focus(bench.notepad);
}

TEST(ActionRunner, FollowsTheTargetTitle) {
    const QStringList none;
    const TitleCase cases[] = {
        {"bar lets only the blocks before the keys run", "|", "{|M+ 1}ab{|CM }", none, "x1"},
        {"bar ends only the nested text", "|", "{|RM }{|M+ 2}", none, "x2"},
        {"no title types into the focused window", "", "a", kTypedA, "x", "", focusNotepad},
        {"no title and no focus types nothing", "", "a{|M+ 1}b", none, "x1",
         "No hi ha cap finestra de destinació: no s'ha escrit \"a\""},
        {"a title that matches no window types nothing", "Calculator", "a{|M+ 1}b", none, "x1",
         "No hi ha cap finestra amb el títol \"Calculator\""},
        {"a window that refuses the focus gets nothing", "Notepad", "a", none, "x",
         "No s'ha pogut activar la finestra \"Notepad\"",
         [](RunnerBench& bench) { bench.windows.refuseFocus(bench.notepad); }},
        {"our own window gets nothing by its title", "Notepad", "a", none, "x",
         "La finestra \"Notepad\" és del Mervak", notepadIsOurs},
        {"our own window gets nothing by the focus", "", "a", none, "x",
         "La finestra \"Notepad - doc\" és del Mervak", notepadIsOurs},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        bench.targetTitle = c.title;
        bench.state.memoryRegister = "x";
        if (c.arrange)
            c.arrange(bench);
        bench.run(c.text);
        EXPECT_EQ(bench.log.lines, c.effects) << c.name;
        EXPECT_EQ(bench.state.memoryRegister, c.registerAfter) << c.name;
        const QString says = QString::fromUtf8(c.says);
        EXPECT_EQ(bench.problems.isEmpty(), says.isEmpty()) << c.name << ": " << bench.problems;
        EXPECT_TRUE(bench.problems.value(0).contains(says)) << c.name << ": " << bench.problems;
    }
}

TEST(ActionRunner, ReportsKeysItCannotTypeInTheUsersLanguageAndGoesOn) {
    RunnerBench bench;
    bench.runner.setLanguage(Language::Spanish);
    bench.run("a%b{NOPE}{|Pagina 2}");
    bench.keyboard.setFailure(TypingError{TypingError::Reason::DisplayNotOpened, {}, ":7"});
    bench.run("a{|Pagina 3}");
    EXPECT_EQ(bench.log.lines, (QStringList{"page 2", "activate Notepad - doc", "page 3"}));
    ASSERT_EQ(bench.problems.size(), 2) << bench.problems;
    EXPECT_TRUE(bench.problems[0].startsWith("No se pueden escribir las teclas \"a%b{NOPE}\""));
    EXPECT_TRUE(bench.problems[1].contains("\":7\"")) << bench.problems[1];
}

TEST(ActionRunner, QueuedTextsRunInOrder) {
    RunnerBench bench;
    QList<bool> busy;
    QObject::connect(&bench.runner, &ActionRunner::busyChanged,
                     [&busy](bool value) { busy.append(value); });
    bench.keyboard.holdFlushes(true);
    bench.runner.SendActionText("a{|Espera 1}");
    bench.runner.SendActionText("{|Pagina 2}b");
    bench.runner.SendActionText("c");
    EXPECT_EQ(bench.log.lines.size(), 3) << bench.log.lines;
    while (bench.keyboard.heldFlushes() > 0)
        bench.keyboard.releaseFlushes();
    EXPECT_EQ(bench.log.lines, (QStringList{"activate Notepad - doc", "type a", "flush", "flush",
                                            "page 2", "activate Notepad - doc", "type b", "flush",
                                            "activate Notepad - doc", "type c", "flush"}));
    EXPECT_EQ(busy, (QList<bool>{true, false}));
}

TEST(ActionRunner, TextGivenFromASignalRunsAfterTheCurrentOne) {
    RunnerBench bench;
    QObject::connect(&bench.runner, &ActionRunner::pendingPageSet,
                     [&bench](int) { bench.runner.SendActionText("x"); });
    bench.run("{|Pagina 2}a");
    EXPECT_EQ(bench.log.lines,
              (QStringList{"page 2", "activate Notepad - doc", "type a", "flush"} + kTypedX));
}

TEST(ActionRunner, CloseStopsEverythingAfterIt) {
    RunnerBench bench;
    bench.keyboard.holdFlushes(true);
    bench.runner.SendActionText("a{|CERRAR}b{|M+ 1}");
    bench.runner.SendActionText("c");
    bench.keyboard.releaseFlushes();
    bench.waitUntilIdle();
    bench.runner.SendActionText("d");
    bench.waitUntilIdle();
    EXPECT_EQ(bench.log.lines, (QStringList{"activate Notepad - doc", "type a", "flush", "close"}));
    EXPECT_TRUE(bench.state.closeRequested);
    EXPECT_EQ(bench.state.memoryRegister, "");
}

// Texts glued from pieces of the language at random, with the register and the
// clipboard holding such texts too: every one must run to its end.
TEST(ActionRunner, SurvivesGarbage) {
    const QStringList pieces = QString("{|;};{;|;(;);+;^;%;~;a; ;#;[;];\\;RM ;RCW;M+ ;M- ;CM;SIM ;"
                                       "Tria ;Mouse ;CE ;PE 3 ;Espera 2;Pagina 9;Sona X.WAV;"
                                       "Enganxa x.txt;ENTER;LEFT 2;99999;-1")
                                   .split(';');
    std::mt19937 generator(2024);
    const auto garbage = [&] {
        QString text;
        const int length = static_cast<int>(generator() % 24);
        for (int i = 0; i < length; ++i)
            text += pieces[static_cast<qsizetype>(generator() % pieces.size())];
        return text;
    };
    for (int i = 0; i < 1000; ++i) {
        RunnerBench bench;
        bench.state.memoryRegister = garbage();
        bench.clipboard.hold(garbage());
        const QString text = garbage();
        bench.run(text);
        ASSERT_FALSE(bench.runner.isBusy()) << text;
    }
}

} // namespace
} // namespace mervak
