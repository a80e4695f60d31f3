#include "action/MacroCatalogue.h"

#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// "P group/name=text" for programs, "M ..." for macros.
QString describe(const MacroCatalogue& catalogue) {
    QStringList parts;
    for (const auto& [kind, entries] :
         {std::pair{"P ", &catalogue.programs()}, std::pair{"M ", &catalogue.macros()}}) {
        for (const CatalogueEntry& entry : *entries)
            parts.append(kind + entry.group + '/' + entry.name + '=' + entry.text);
    }
    return parts.join("; ");
}

TEST(MacroCatalogue, ParsesSectionsAndSkipsBadLines) {
    const std::pair<const char*, const char*> cases[] = {
        {"[Programes]\nCalc=gcalc\n[Macros]\ncalc={ENTER}\n", "P /Calc=gcalc; M /calc={ENTER}"},
        {"[programas: Jocs]\r\nTux Paint = tuxpaint \r\n[MACROS :Memòria]\r\nRM={|RM }\r\n",
         "P Jocs/Tux Paint=tuxpaint; M Memòria/RM={|RM }"},
        {"[Macros]\nEspai=\" \"\nIgual={|M+ a=b}\nApòstrof=' x '\n",
         "M /Espai= ; M /Igual={|M+ a=b}; M /Apòstrof= x "},
        {"; title\n\n[Macros]\n  ; note\nA=a\n", "M /A=a"},
        {"A=a\n[Macros]\nB=b\n", "M /B=b"},
        {"[Macros]\nnothing here\nB=b\n", "M /B=b"},
        {"[Programes]\n=x\nY=\nZ=\"\"\n", ""},
        {"[Macros]\nA=a\n[Altres]\nB=b\nC=c\n[Macros]\nD=d\n", "M /A=a; M /D=d"},
        {"[Macros]\nA=a\n[Programes\nB=b\n", "M /A=a; M /B=b"},
        {"[Macros]\nA=1\na=2\n[Macros: G]\nA=3\n", "M /A=1; M G/A=3"},
        {"\x01\x02]]==[[\n[\n=\n[]\n", ""},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(describe(MacroCatalogue::parse(QString::fromUtf8(text))),
                  QString::fromUtf8(expected))
            << text;
}

TEST(MacroCatalogue, AMissingFileGivesAnEmptyCatalogue) {
    EXPECT_EQ(describe(MacroCatalogue::read("/nonexistent/MACROS.INI")), "");
}

TEST(MacroCatalogue, ReadsWindows1252AndUtf8Files) {
    QTemporaryDir dir;
    for (const QByteArray& name : {QByteArray("Mem\xf2ria"), QByteArray("Mem\xc3\xb2ria")}) {
        test::writeAll(dir.filePath("m.ini"), "[Macros]\n" + name + "=x\n");
        EXPECT_EQ(describe(MacroCatalogue::read(dir.filePath("m.ini"))), "M /Memòria=x") << name;
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
    const auto located = [&] { return MacroCatalogue::locate(home.path(), program.path()); };
    EXPECT_EQ(located(), QString());
    QDir(home.path()).mkdir("MACROS.INI");
    test::writeAll(program.filePath("MACROS.INI"), "[Macros]\n");
    EXPECT_EQ(located(), program.filePath("MACROS.INI")) << "a folder is no file";
    QDir(home.path()).rmdir("MACROS.INI");
    test::writeAll(home.filePath("macros.ini"), "[Macros]\n");
    EXPECT_EQ(located(), home.filePath("macros.ini")) << "the home copy wins, any letter case";
}

} // namespace
} // namespace mervak
