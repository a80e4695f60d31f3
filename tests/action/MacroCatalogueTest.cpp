#include "action/MacroCatalogue.h"

#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using Entries = QList<CatalogueEntry>;

TEST(MacroCatalogue, ParsesSectionsAndSkipsBadLines) {
    const struct {
        const char* name;
        const char* text;
        Entries programs;
        Entries macros;
    } cases[] = {
        {"empty text", "", {}, {}},
        {"plain sections",
         "[Programes]\nCalculadora=gnome-calculator\n[Macros]\nIntro={ENTER}\n",
         {{"", "Calculadora", "gnome-calculator"}},
         {{"", "Intro", "{ENTER}"}}},
        {"groups, section names in any case, CR LF",
         "[programes: Jocs]\r\nTux Paint = tuxpaint \r\n[MACROS :Memòria]\r\nRM={|RM }\r\n",
         {{"Jocs", "Tux Paint", "tuxpaint"}},
         {{"Memòria", "RM", "{|RM }"}}},
        {"Spanish section name", "[Programas]\nCalc=gcalc\n", {{"", "Calc", "gcalc"}}, {}},
        {"quotes keep blanks; the first = splits",
         "[Macros]\nEspai=\" \"\nIgual={|M+ a=b}\nApòstrof=' x '\n",
         {},
         {{"", "Espai", " "}, {"", "Igual", "{|M+ a=b}"}, {"", "Apòstrof", " x "}}},
        {"comments and blank lines", "; title\n\n[Macros]\n  ; note\nA=a\n", {}, {{"", "A", "a"}}},
        {"line before any section", "A=a\n[Macros]\nB=b\n", {}, {{"", "B", "b"}}},
        {"line without =", "[Macros]\nnothing here\nB=b\n", {}, {{"", "B", "b"}}},
        {"empty name and empty value", "[Programes]\n=x\nY=\nZ=\"\"\n", {}, {}},
        {"an unknown section's lines are skipped",
         "[Macros]\nA=a\n[Altres]\nB=b\nC=c\n[Macros]\nD=d\n",
         {},
         {{"", "A", "a"}, {"", "D", "d"}}},
        {"a header without ] is no header",
         "[Macros]\nA=a\n[Programes\nB=b\n",
         {},
         {{"", "A", "a"}, {"", "B", "b"}}},
        {"duplicate names: first kept, case ignored, groups apart",
         "[Macros]\nA=1\na=2\n[Macros: G]\nA=3\n",
         {},
         {{"", "A", "1"}, {"G", "A", "3"}}},
        {"same name as program and macro",
         "[Programes]\nA=a\n[Macros]\nA={ENTER}\n",
         {{"", "A", "a"}},
         {{"", "A", "{ENTER}"}}},
        {"garbage", "\x01\x02]]==[[\n[\n=\n[]\n", {}, {}},
    };
    for (const auto& c : cases) {
        const MacroCatalogue catalogue = MacroCatalogue::parse(QString::fromUtf8(c.text));
        EXPECT_EQ(catalogue.programs(), c.programs) << c.name;
        EXPECT_EQ(catalogue.macros(), c.macros) << c.name;
    }
}

TEST(MacroCatalogue, AMissingFileGivesAnEmptyCatalogue) {
    const MacroCatalogue catalogue =
        MacroCatalogue::read(QStringLiteral("/nonexistent/MACROS.INI"));
    EXPECT_TRUE(catalogue.programs().isEmpty());
    EXPECT_TRUE(catalogue.macros().isEmpty());
}

TEST(MacroCatalogue, ReadsWindows1252AndUtf8Files) {
    QTemporaryDir dir;
    const QString latin = dir.filePath("latin.ini");
    const QString utf8 = dir.filePath("utf8.ini");
    test::writeAll(latin, QByteArray("[Macros]\nMem\xf2ria={|RM }\n"));
    test::writeAll(utf8, QByteArray("[Macros]\nMem\xc3\xb2ria={|RM }\n"));
    for (const QString& path : {latin, utf8}) {
        const MacroCatalogue catalogue = MacroCatalogue::read(path);
        ASSERT_EQ(catalogue.macros().size(), 1) << path.toStdString();
        EXPECT_EQ(catalogue.macros()[0].name, QStringLiteral("Memòria")) << path.toStdString();
    }
}

TEST(MacroCatalogue, ShippedSampleReadsCleanly) {
    const MacroCatalogue catalogue =
        MacroCatalogue::read(test::dataPath(QStringLiteral("../../data/MACROS.INI")));
    EXPECT_GE(catalogue.programs().size(), 5);
    EXPECT_GE(catalogue.macros().size(), 10);
}

TEST(MacroCatalogue, LocatesTheHomeCopyFirstThenTheSample) {
    QTemporaryDir home;
    QTemporaryDir program;
    const QString homeFile = home.filePath("macros.ini");
    const QString sampleFile = program.filePath("MACROS.INI");
    const struct {
        const char* name;
        bool inHome;
        bool inProgram;
        QString expected;
    } cases[] = {
        {"neither", false, false, QString()},
        {"sample only", false, true, sampleFile},
        {"home copy wins, any letter case", true, true, homeFile},
        {"home copy alone", true, false, homeFile},
    };
    for (const auto& c : cases) {
        QFile::remove(homeFile);
        QFile::remove(sampleFile);
        if (c.inHome)
            test::writeAll(homeFile, "[Macros]\n");
        if (c.inProgram)
            test::writeAll(sampleFile, "[Macros]\n");
        EXPECT_EQ(MacroCatalogue::locate(home.path(), program.path()), c.expected) << c.name;
    }
    QFile::remove(homeFile);
    QDir(home.path()).mkdir("MACROS.INI");
    EXPECT_EQ(MacroCatalogue::locate(home.path(), QString()), QString()) << "a folder is no file";
}

TEST(MacroCatalogue, PickersStartWithTheirPromptRows) {
    const MacroCatalogue catalogue =
        MacroCatalogue::parse(QStringLiteral("[Programes]\nCalc=gcalc\n[Macros]\nIntro={ENTER}\n"));
    EXPECT_EQ(catalogue.programPickerItems(Language::Catalan),
              (QStringList{">>> tria un programa", ">>> ALTRES", "Calc"}));
    EXPECT_EQ(catalogue.programPickerItems(Language::Spanish),
              (QStringList{">>> Seleccione un programa", ">>> OTROS", "Calc"}));
    EXPECT_EQ(catalogue.macroPickerItems(Language::Catalan),
              (QStringList{">>> Tria una macro", "Intro"}));
    EXPECT_EQ(catalogue.programPickerItems(Language::Catalan)[MacroCatalogue::kFirstProgramRow],
              catalogue.programs()[0].name);
    EXPECT_EQ(catalogue.macroPickerItems(Language::Spanish)[MacroCatalogue::kFirstMacroRow],
              catalogue.macros()[0].name);
    EXPECT_EQ(MacroCatalogue::executeBlock("  libreoffice --calc "),
              QStringLiteral("{|Executa libreoffice --calc}"));
}

} // namespace
} // namespace mervak
