#include "support/TestFiles.h"
#include "template/MvwReader.h"
#include "template/MvwWriter.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::dataPath;
using test::readAll;

Area makeArea(int16_t x0, int16_t y0, int16_t x1, int16_t y1, int16_t page, const QString& clip,
              const QString& text, int16_t flags, int16_t clipFlag = 0) {
    Area a;
    a.X0 = x0;
    a.Y0 = y0;
    a.X1 = x1;
    a.Y1 = y1;
    a.Page = page;
    a.ClipFlag = clipFlag;
    a.Clip = clip;
    a.ActionText = text;
    a.Flags = flags;
    return a;
}

void fillHeader(Template& t) {
    t.Ordres = QStringLiteral("ordres \"x\"");
    t.PlantOption = -1;
    t.FitxClip = QStringLiteral("clips");
    t.Tecles = QStringLiteral("tecles");
    t.FitxDoc = QStringLiteral("doc.txt");
    t.TxFinestra = QStringLiteral("Bloc de notes");
    t.descripcio = QStringLiteral("Descripció amb coma, i \"cometes\"");
    t.PageCount = 2;
    t.SoundActive = -1;
}

// What tests/data/template/golden-v2.mvw holds.
Template goldenVersion2() {
    Template t;
    t.FormatVersion = 2;
    t.FitxGraf = QStringLiteral("C:\\PLANTILLES\\lamina.bmp");
    fillHeader(t);
    t.HeaderFlag = 7;
    t.sv_idioma = 1;
    t.sv_locutor = 2;
    t.SV_velocitat = 150;
    t.AppendArea(makeArea(10, 20, 30, 40, 1, {}, QStringLiteral("hola{ENTER}"), 0));
    t.AppendArea(makeArea(0, 0, 119, 119, 2, {}, QStringLiteral("{|Pagina 1}"), -1));
    t.AppendArea(makeArea(-5, 60, 32767, -32768, 1, QStringLiteral("so.wav"),
                          QStringLiteral("àèòç·l \"x\""), 0));
    return t;
}

void expectSameTemplate(const Template& a, const Template& b, const char* name) {
    EXPECT_EQ(a.FitxGraf, b.FitxGraf) << name;
    EXPECT_EQ(a.Ordres, b.Ordres) << name;
    EXPECT_EQ(a.PlantOption, b.PlantOption) << name;
    EXPECT_EQ(a.FitxClip, b.FitxClip) << name;
    EXPECT_EQ(a.Tecles, b.Tecles) << name;
    EXPECT_EQ(a.FitxDoc, b.FitxDoc) << name;
    EXPECT_EQ(a.TxFinestra, b.TxFinestra) << name;
    EXPECT_EQ(a.descripcio, b.descripcio) << name;
    EXPECT_EQ(a.PageCount, b.PageCount) << name;
    EXPECT_EQ(a.SoundActive, b.SoundActive) << name;
    EXPECT_EQ(a.HeaderFlag, b.HeaderFlag) << name;
    EXPECT_EQ(a.sv_idioma, b.sv_idioma) << name;
    EXPECT_EQ(a.sv_locutor, b.sv_locutor) << name;
    EXPECT_EQ(a.SV_velocitat, b.SV_velocitat) << name;
    ASSERT_EQ(a.AreaCount(), b.AreaCount()) << name;
    for (int i = 1; i <= a.AreaCount(); ++i)
        EXPECT_TRUE(a.area(i) == b.area(i)) << name << " area " << i;
}

TEST(MvwFormat, ReadsTheVersion2GoldenFile) {
    Template t;
    ASSERT_FALSE(readMvw(readAll(dataPath("template/golden-v2.mvw")), t));
    EXPECT_EQ(t.FormatVersion, 2);
    expectSameTemplate(t, goldenVersion2(), "golden v2");
}

TEST(MvwFormat, WritesTheVersion2GoldenFileByteForByte) {
    EXPECT_EQ(writeMvw(goldenVersion2()), readAll(dataPath("template/golden-v2.mvw")));
}

TEST(MvwFormat, AVersion2FileWrittenHereReadsBackToTheSameBytes) {
    const QStringList files = {"template/golden-v2.mvw", "template/golden-utf8.mvw"};
    for (const QString& file : files) {
        const QByteArray original = readAll(dataPath(file));
        Template t;
        ASSERT_FALSE(readMvw(original, t)) << file.toStdString();
        EXPECT_EQ(writeMvw(t), original) << file.toStdString();
    }
}

TEST(MvwFormat, ReadsVersion1AndConvertsClips) {
    Template t;
    ASSERT_FALSE(readMvw(readAll(dataPath("template/golden-v1.mvw")), t));
    EXPECT_EQ(t.FormatVersion, 1);
    EXPECT_EQ(t.HeaderFlag, 0);
    ASSERT_EQ(t.AreaCount(), 2);
    EXPECT_TRUE(t.area(1) == makeArea(1, 2, 3, 4, 1, {}, QStringLiteral("{|Enganxa a.bmp}hola"), 0))
        << t.area(1).ActionText.toStdString();
    EXPECT_TRUE(t.area(2) == makeArea(5, 6, 7, 8, 2, {}, QStringLiteral("adéu"), -1, 1))
        << "an Area without clip keeps its ClipFlag";
}

TEST(MvwFormat, SaveAsWritesTheVersion1LayoutUnderNumber2) {
    Template t;
    t.FitxGraf = QStringLiteral("lamina.bmp");
    fillHeader(t);
    t.AppendArea(makeArea(1, 2, 3, 4, 1, QStringLiteral("a.bmp"), QStringLiteral("hola"), 0, 1));
    t.AppendArea(makeArea(5, 6, 7, 8, 2, {}, QStringLiteral("adéu"), -1, 1));
    const QByteArray golden = readAll(dataPath("template/golden-saveas.mvw"));
    EXPECT_EQ(writeMvwSaveAs(t), golden);

    Template back;
    ASSERT_FALSE(readMvw(golden, back));
    EXPECT_EQ(back.FormatVersion, 2);
    expectSameTemplate(back, t, "save-as layout reads back without clip conversion");
}

TEST(MvwFormat, AnEmptyTemplateWritesExactlyTheHeader) {
    const QByteArray bytes = writeMvw(Template());
    EXPECT_EQ(bytes, QByteArray(" 2 \r\n 0 \r\n\r\n 0 \r\n\"\"\r\n 0 \r\n\"\"\r\n\"\"\r\n\"\"\r\n"
                                "\"\"\r\n\"\"\r\n 1 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n"));
    EXPECT_EQ(bytes.count("\r\n"), 17);
    Template back;
    EXPECT_FALSE(readMvw(bytes, back));
    EXPECT_EQ(back.AreaCount(), 0);
    EXPECT_EQ(Template().AreaCount(), 0);
    const QByteArray saveAs = writeMvwSaveAs(Template());
    EXPECT_EQ(saveAs.count("\r\n"), 13);
    EXPECT_FALSE(readMvw(saveAs, back)) << "an empty save-as file reads too";
}

TEST(MvwFormat, DoubleQuotesAndPilcrowsBothReadBackAsDoubleQuotes) {
    Template t;
    Area a;
    a.Page = 1;
    a.ActionText = QStringLiteral("di \"hola\" i ¶adéu¶");
    t.AppendArea(a);
    const QByteArray bytes = writeMvw(t);
    EXPECT_TRUE(bytes.contains("\"di \xb6hola\xb6 i \xb6"
                               "ad\xe9u\xb6\""));
    Template back;
    ASSERT_FALSE(readMvw(bytes, back));
    EXPECT_EQ(back.area(1).ActionText, QStringLiteral("di \"hola\" i \"adéu\""));
}

TEST(MvwFormat, WritesUtf8OnlyWhenACharacterDoesNotFitTheLegacyCodePage) {
    Template t;
    t.descripcio = QStringLiteral("col·legi");
    EXPECT_TRUE(writeMvw(t).contains("col\xb7legi"));
    t.descripcio = QStringLiteral("col·legi Ŀ");
    EXPECT_TRUE(writeMvw(t).contains("col\xc2\xb7legi \xc4\xbf"));
}

TEST(MvwFormat, LegacyTextThatLooksLikeUtf8IsWrittenSoItReadsBackTheSame) {
    Template t;
    t.descripcio = QStringLiteral("plaÃ§a");
    const QByteArray bytes = writeMvw(t);
    EXPECT_TRUE(bytes.contains("pla\xc3\x83\xc2\xa7"
                               "a"))
        << "written as UTF-8";
    Template back;
    ASSERT_FALSE(readMvw(bytes, back));
    EXPECT_EQ(back.descripcio, t.descripcio);
}

TEST(MvwFormat, ACommaInTheSheetImageCutsItButTheFileStillReads) {
    Template t;
    t.FitxGraf = QStringLiteral("C:\\fotos, 2003\\lamina.bmp");
    t.AppendArea(makeArea(1, 2, 3, 4, 1, {}, QStringLiteral("a"), 0));
    Template back;
    ASSERT_FALSE(readMvw(writeMvw(t), back));
    EXPECT_EQ(back.FitxGraf, QStringLiteral("C:\\fotos"));
    EXPECT_EQ(back.AreaCount(), 1);
}

TEST(MvwFormat, AFullTemplateOf32767AreasWritesAndReadsBack) {
    Template t;
    t.PageCount = 2;
    Area a;
    a.ActionText = QStringLiteral("x");
    for (int i = 0; i < Template::kMaxAreas; ++i) {
        a.Page = static_cast<int16_t>(i % 2 + 1);
        a.X0 = static_cast<int16_t>(i);
        t.AppendArea(a);
    }
    Template back;
    ASSERT_FALSE(readMvw(writeMvw(t), back));
    ASSERT_EQ(back.AreaCount(), 32767);
    EXPECT_EQ(back.area(32767).X0, 32766);
    EXPECT_EQ(back.areasOfPage(1).size(), 16384);
    EXPECT_EQ(back.countAreasOfPage(2), 16383);
    Template saveAs;
    ASSERT_FALSE(readMvw(writeMvwSaveAs(t), saveAs));
    EXPECT_EQ(saveAs.AreaCount(), 32767);
}

struct VersionCase {
    const char* name;
    QByteArray start;
    int message; // 0: read
    int16_t areas;
};

TEST(MvwFormat, VersionAndRevisionDecideTheBranch) {
    const QByteArray rest = readAll(dataPath("template/golden-v2.mvw")).mid(10);
    const VersionCase cases[] = {
        {"version 3", " 3 \r\n 0 \r\n", 14, 0},
        {"revision 1", " 2 \r\n 1 \r\n", 14, 0},
        {"version 1 revision 1", " 1 \r\n 1 \r\n", 14, 0},
        {"version 0 reads nothing more", " 0 \r\n 0 \r\n", 0, 0},
        {"negative version reads nothing more", "-4 \r\n 0 \r\n", 0, 0},
        {"negative revision is not newer", " 2 \r\n-1 \r\n", 0, 3},
    };
    for (const auto& c : cases) {
        Template t;
        const auto error = readMvw(c.start + rest, t);
        EXPECT_EQ(error ? error->message : 0, c.message) << c.name;
        EXPECT_EQ(t.AreaCount(), c.areas) << c.name;
    }
}

struct BrokenCase {
    const char* name;
    QByteArray bytes;
    int line;
};

TEST(MvwFormat, BrokenTextSaysWhereReadingFailed) {
    const QByteArray good = readAll(dataPath("template/golden-v2.mvw"));
    const BrokenCase cases[] = {
        {"nothing at all", "", 1},
        {"only the version", " 2 \r\n", 2},
        {"cut in the header", good.left(good.indexOf("\"tecles")), 8},
        {"text where AreaCount goes", QByteArray(good).replace(" 3 \r\n\"ordres", "x\r\n\"ordres"),
         4},
        {"negative AreaCount", QByteArray(good).replace(" 3 \r\n\"ordres", "-1 \r\n\"ordres"), 4},
        {"more areas announced than present",
         QByteArray(good).replace(" 3 \r\n\"ordres", " 4 \r\n\"ordres"), 42},
        {"number where a quoted text goes", QByteArray(good).replace("\"clips\"", " 5 "), 7},
        {"cut inside an ActionText", good.left(good.indexOf("hola") + 2), 24},
        {"coordinate beyond 16 bits", QByteArray(good).replace(" 10 \r\n", " 99999 \r\n"), 18},
        {"binary garbage", QByteArray("\x00\xff\x13\x80", 4), 1},
    };
    for (const auto& c : cases) {
        Template t;
        const auto error = readMvw(c.bytes, t);
        ASSERT_TRUE(error) << c.name;
        EXPECT_EQ(error->message, 3) << c.name;
        EXPECT_EQ(error->line, c.line) << c.name;
    }
}

} // namespace
} // namespace mervak
