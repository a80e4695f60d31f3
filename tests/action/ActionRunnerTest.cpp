#include "RunnerBench.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>
#include <random>

namespace mervak {
namespace {

using test::RunnerBench;

struct RunCase {
    const char* name;
    QString text;
    QStringList effects;
    int problems = 0;
};

void expectRuns(const RunCase& c, RunnerBench& bench) {
    bench.run(c.text);
    EXPECT_EQ(bench.log.lines, c.effects) << c.name;
    EXPECT_EQ(bench.problems.size(), c.problems) << c.name << ": " << bench.problems;
}

TEST(ActionRunner, TypesKeyRunsAndWaitsBetweenSteps) {
    const RunCase cases[] = {
        {"empty text does nothing", "", {}},
        {"keys", "abc", {"activate Notepad - doc", "type abc", "flush"}},
        {"accents and chords",
         "Adéu^s{ENTER}",
         {"activate Notepad - doc", "type Adéu^s{ENTER}", "flush"}},
        {"waits between runs",
         "abc{|Espera 3}def",
         {"activate Notepad - doc", "type abc", "flush", "flush", "flush", "flush",
          "activate Notepad - doc", "type def", "flush"}},
        {"a block alone activates nothing", "{|Pagina 2}", {"page 2"}},
        {"blanks between blocks are typed",
         "{|Pagina 2} {|Pagina 3}",
         {"page 2", "activate Notepad - doc", "type  ", "flush", "page 3"}},
        {"unknown keyword does nothing",
         "{|Hola 2}x",
         {"activate Notepad - doc", "type x", "flush"}},
        {"level is ignored", "{|Nivell 2}", {}},
        {"unclosed block runs to the end",
         "a{|Espera 2",
         {"activate Notepad - doc", "type a", "flush", "flush", "flush"}},
        {"malformed keys type nothing, the rest runs",
         "a{NOPE}{|Espera 1}b",
         {"flush", "activate Notepad - doc", "type b", "flush"},
         1},
        {"unclosed parenthesis", "+(ab", {}, 1},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        expectRuns(c, bench);
    }
}

TEST(ActionRunner, WaitCountsAreKeyFlushes) {
    const RunCase cases[] = {
        {"three", "{|Espera 3}", {"flush", "flush", "flush"}},
        {"zero still flushes once", "{|Espera 0}", {"flush"}},
        {"negative flushes once", "{|Espera -5}", {"flush"}},
        {"missing count flushes once", "{|Espera}", {"flush"}},
        {"count rounds half to even", "{|Espera 2.5}", {"flush", "flush"}},
        {"count read with Val", "{|Espera 2x}", {"flush", "flush"}},
        {"count beyond 16 bits waits not at all",
         "{|Espera 40000}x",
         {"activate Notepad - doc", "type x", "flush"},
         1},
        {"counting down from the bottom overflows after one", "{|Espera -32768}", {"flush"}, 1},
        {"Spanish form is the same word", "{|ESPERA 2}", {"flush", "flush"}},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        expectRuns(c, bench);
    }
}

struct TitleCase {
    const char* name;
    QString title;
    QString text;
    QStringList effects;
    QString memoryAfter;
    int problems = 0;
    void (*arrange)(RunnerBench&) = nullptr;
    const char* says = ""; // in the first problem
};

void focusNotepad(RunnerBench& bench) {
    bench.windows.focus(bench.notepad);
}

void notepadIsOurs(RunnerBench& bench) {
    bench.ownWindows = {bench.notepad};
    bench.windows.focus(bench.notepad);
}

TEST(ActionRunner, FollowsTheTargetTitle) {
    const TitleCase cases[] = {
        {"bar stops before the block", "|", "ab{|CM }", {}, "x"},
        {"bar lets earlier blocks run", "|", "{|M+ 1}ab{|CM }", {}, "x1"},
        {"bar ends only the nested text", "|", "{|RM }{|M+ 2}", {}, "x2"},
        {"bar stops the trailing run", "|", "{|Pagina 4}ab", {"page 4"}, "x"},
        {"title matched by its beginning, any case",
         "notepad",
         "a",
         {"activate Notepad - doc", "type a", "flush"},
         "x"},
        {"no title types into the focused window",
         "",
         "a",
         {"type a", "flush"},
         "x",
         0,
         focusNotepad},
        {"no title and no focus types nothing",
         "",
         "a{|M+ 1}b",
         {},
         "x1",
         2,
         nullptr,
         "No hi ha cap finestra de destinació: no s'ha escrit \"a\""},
        {"a title that matches no window types nothing",
         "Calculator",
         "a{|M+ 1}b",
         {},
         "x1",
         2,
         nullptr,
         "No hi ha cap finestra amb el títol \"Calculator\""},
        {"a window that refuses the focus gets nothing",
         "Notepad",
         "a",
         {},
         "x",
         1,
         [](RunnerBench& bench) { bench.windows.refuseFocus(bench.notepad); },
         "No s'ha pogut activar la finestra \"Notepad\""},
        {"our own window gets nothing by its title",
         "Notepad",
         "a",
         {},
         "x",
         1,
         notepadIsOurs,
         "La finestra \"Notepad\" és del Mervak"},
        {"our own window gets nothing by the focus",
         "",
         "a",
         {},
         "x",
         1,
         notepadIsOurs,
         "La finestra \"Notepad - doc\" és del Mervak"},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        bench.targetTitle = c.title;
        bench.state.memoryRegister = "x";
        if (c.arrange)
            c.arrange(bench);
        bench.run(c.text);
        EXPECT_EQ(bench.log.lines, c.effects) << c.name;
        EXPECT_EQ(bench.state.memoryRegister, c.memoryAfter) << c.name;
        ASSERT_EQ(bench.problems.size(), c.problems) << c.name << ": " << bench.problems;
        if (c.problems > 0) {
            EXPECT_TRUE(bench.problems.front().contains(QString::fromUtf8(c.says)))
                << c.name << ": " << bench.problems.front();
        }
    }
}

TEST(ActionRunner, ReportsBrokenKeysInTheUsersLanguage) {
    struct Case {
        Language language;
        QString problem;
    };
    const Case cases[] = {
        {Language::Catalan, QString::fromUtf8("No es poden escriure les tecles \"a%b{NOPE}\": hi "
                                              "ha un nom de tecla desconegut \"{NOPE}\" al "
                                              "caràcter 4")},
        {Language::Spanish, QString::fromUtf8("No se pueden escribir las teclas \"a%b{NOPE}\": "
                                              "hay un nombre de tecla desconocido \"{NOPE}\" en "
                                              "el carácter 4")},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        bench.runner.setLanguage(c.language);
        bench.run("a%b{NOPE}");
        EXPECT_EQ(bench.problems, QStringList{c.problem});
        EXPECT_TRUE(bench.windows.activations().isEmpty());
    }
}

TEST(ActionRunner, ReportsAKeyboardThatCannotTypeInTheUsersLanguage) {
    using Reason = TypingError::Reason;
    struct Case {
        Language language;
        TypingError error;
        const char* problem;
    };
    const Case cases[] = {
        {Language::Catalan,
         {Reason::KeyNotTypeable, {Key::Character, U'\x9b', {}}, {}},
         "No s'han pogut escriure les tecles: \"\u009b\" (U+009B) no es pot escriure amb cap "
         "teclat"},
        {Language::Spanish,
         {Reason::NoFreeKeycode, {Key::F13, 0, {}}, {}},
         "No se han podido escribir las teclas: no queda ningún código de tecla libre para "
         "{F13}"},
        {Language::Catalan,
         {Reason::DisplayNotOpened, {}, ":7"},
         "No s'han pogut escriure les tecles: no es pot obrir la pantalla X \":7\""},
        {Language::Spanish,
         {Reason::NoModifierKey, {}, "Mod5"},
         "No se han podido escribir las teclas: ninguna tecla del teclado da el modificador "
         "Mod5"},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        bench.runner.setLanguage(c.language);
        bench.keyboard.setFailure(c.error);
        bench.run("a{|Pagina 2}");
        EXPECT_EQ(bench.problems, QStringList{QString::fromUtf8(c.problem)});
        EXPECT_EQ(bench.log.lines, (QStringList{"activate Notepad - doc", "page 2"}));
    }
}

TEST(ActionRunner, DoesNotGoOnBeforeTheFlushEnds) {
    RunnerBench bench;
    bench.keyboard.holdFlushes(true);
    bench.runner.SendActionText("a{|Pagina 2}b");
    EXPECT_EQ(bench.log.lines, (QStringList{"activate Notepad - doc", "type a", "flush"}));
    EXPECT_TRUE(bench.runner.isBusy());
    bench.keyboard.releaseFlushes();
    EXPECT_EQ(bench.log.lines.mid(3),
              (QStringList{"page 2", "activate Notepad - doc", "type b", "flush"}));
    bench.keyboard.releaseFlushes();
    EXPECT_FALSE(bench.runner.isBusy());
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
                     [&bench](int) { bench.runner.SendActionText("z"); });
    bench.run("{|Pagina 2}a");
    EXPECT_EQ(bench.log.lines, (QStringList{"page 2", "activate Notepad - doc", "type a", "flush",
                                            "activate Notepad - doc", "type z", "flush"}));
}

TEST(ActionRunner, CloseStopsEverythingAfterIt) {
    for (const char* keyword : {"Tancar", "CERRAR"}) {
        RunnerBench bench;
        bench.keyboard.holdFlushes(true);
        bench.runner.SendActionText(QStringLiteral("a{|%1}b{|M+ 1}").arg(keyword));
        bench.runner.SendActionText("c");
        bench.keyboard.releaseFlushes();
        bench.waitUntilIdle();
        bench.runner.SendActionText("d");
        bench.waitUntilIdle();
        EXPECT_EQ(bench.log.lines,
                  (QStringList{"activate Notepad - doc", "type a", "flush", "close"}))
            << keyword;
        EXPECT_TRUE(bench.state.closeRequested) << keyword;
        EXPECT_EQ(bench.state.memoryRegister, "") << keyword;
    }
}

struct NestingCase {
    const char* name;
    QString memory;
    QString clipboard;
    QString text;
    QStringList effects;
    int problems = 0;
};

TEST(ActionRunner, NestedTextsRunInPlace) {
    const NestingCase cases[] = {
        {"register holds blocks",
         "{|Pagina 3}x",
         "",
         "{|RM }y",
         {"page 3", "activate Notepad - doc", "type x", "flush", "activate Notepad - doc", "type y",
          "flush"}},
        {"clipboard typed",
         "",
         "hola{ENTER}",
         "{|RCW }",
         {"activate Notepad - doc", "type hola{ENTER}", "flush"}},
        {"register that types itself stops", "{|RM }", "", "{|RM }a", {}, 1},
        {"register that doubles itself stops", "{|RM }{|RM }", "", "{|RM }", {}, 1},
        {"clipboard that types itself stops", "", "{|RCW }", "{|RCW }", {}, 1},
    };
    for (const auto& c : cases) {
        RunnerBench bench;
        bench.state.memoryRegister = c.memory;
        bench.clipboard.hold(c.clipboard);
        bench.run(c.text);
        EXPECT_EQ(bench.log.lines, c.effects) << c.name;
        EXPECT_EQ(bench.problems.size(), c.problems) << c.name << ": " << bench.problems;
    }
}

TEST(ActionRunner, RunsAgainAfterANestingProblem) {
    RunnerBench bench;
    bench.state.memoryRegister = "{|RM }";
    bench.run("{|RM }");
    bench.log.lines.clear();
    bench.run("ok");
    EXPECT_EQ(bench.log.lines, (QStringList{"activate Notepad - doc", "type ok", "flush"}));
}

// Texts glued from pieces of the language at random, with the register and the
// clipboard holding such texts too: every one must run to its end.
TEST(ActionRunner, SurvivesGarbage) {
    const QStringList pieces = {"{|",    "}",        "{",        "|",          "(",
                                ")",     "+",        "^",        "%",          "~",
                                "a",     " ",        "#",        "[",          "]",
                                "\\",    "RM ",      "RCW",      "M+ ",        "M- ",
                                "CM",    "SIM ",     "Tria ",    "Mouse ",     "CE ",
                                "PE 3 ", "Espera 2", "Pagina 9", "Sona X.WAV", "Enganxa x.txt",
                                "ENTER", "LEFT 2",   "99999",    "-1"};
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
