#include "support/TestAreas.h"
#include "support/TestFiles.h"
#include "template/MvwReader.h"
#include "template/MvwWriter.h"

#include <QSize>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::dataPath;
using test::readAll;

// An Area with the record fields beyond those test::makeArea sets.
Area record(int16_t x0, int16_t y0, int16_t x1, int16_t y1, int16_t page, const QString& text,
            int16_t flags = 0, int16_t clipFlag = 0, const QString& clip = {}) {
    Area a = test::makeArea(x0, y0, x1, y1, page, text);
    a.Flags = flags;
    a.ClipFlag = clipFlag;
    a.Clip = clip;
    return a;
}

// What tests/data/template/golden-v2.mvw holds.
Template goldenVersion2() {
    Template t;
    t.FitxGraf = QStringLiteral("C:\\PLANTILLES\\lamina.bmp");
    t.Ordres = QStringLiteral("ordres \"x\"");
    t.PlantOption = -1;
    t.FitxClip = QStringLiteral("clips");
    t.Tecles = QStringLiteral("tecles");
    t.FitxDoc = QStringLiteral("doc.txt");
    t.TxFinestra = QStringLiteral("Bloc de notes");
    t.descripcio = QStringLiteral("Descripció amb coma, i \"cometes\"");
    t.PageCount = 2;
    t.SoundActive = -1;
    t.HeaderFlag = 7;
    t.sv_idioma = 1;
    t.sv_locutor = 2;
    t.SV_velocitat = 150;
    t.AppendArea(record(10, 20, 30, 40, 1, "hola{ENTER}"));
    t.AppendArea(record(0, 0, 119, 119, 2, "{|Pagina 1}", -1));
    t.AppendArea(record(-5, 60, 32767, -32768, 1, "àèòç·l \"x\"", 0, 0, "so.wav"));
    return t;
}

// The writer writes every stored field, so equal output means equal stored fields.
TEST(MvwFormat, Version2FilesReadAndWriteByteForByte) {
    const QByteArray golden = readAll(dataPath("template/golden-v2.mvw"));
    EXPECT_EQ(writeMvw(goldenVersion2()), golden);
    Template t;
    ASSERT_FALSE(readMvw(golden, t));
    EXPECT_EQ(t.FormatVersion, 2);
    EXPECT_EQ(writeMvw(t), golden);

    const QByteArray utf8 = readAll(dataPath("template/golden-utf8.mvw"));
    Template u;
    ASSERT_FALSE(readMvw(utf8, u));
    EXPECT_EQ(writeMvw(u), utf8);
}

TEST(MvwFormat, ReadsVersion1AndConvertsClips) {
    Template t;
    ASSERT_FALSE(readMvw(readAll(dataPath("template/golden-v1.mvw")), t));
    EXPECT_EQ(t.FormatVersion, 1);
    EXPECT_EQ(t.HeaderFlag, 0);
    ASSERT_EQ(t.AreaCount(), 2);
    EXPECT_TRUE(t.area(1) == record(1, 2, 3, 4, 1, "{|Enganxa a.bmp}hola")) << t.area(1).ActionText;
    EXPECT_TRUE(t.area(2) == record(5, 6, 7, 8, 2, "adéu", -1, 1))
        << "an Area without clip keeps its ClipFlag";
}

// The header is the version 2 one without its last four lines.
TEST(MvwFormat, SaveAsWritesTheVersion1LayoutUnderNumber2) {
    const QByteArray golden = readAll(dataPath("template/golden-saveas.mvw"));
    Template t;
    ASSERT_FALSE(readMvw(golden, t));
    EXPECT_EQ(t.FormatVersion, 2);
    EXPECT_EQ(t.FitxGraf, "lamina.bmp");
    ASSERT_EQ(t.AreaCount(), 2);
    EXPECT_TRUE(t.area(1) == record(1, 2, 3, 4, 1, "hola", 0, 1, "a.bmp")) << "no clip conversion";
    EXPECT_TRUE(t.area(2) == record(5, 6, 7, 8, 2, "adéu", -1, 1));
    EXPECT_EQ(writeMvwSaveAs(t), golden);
}

// Older readers stop after the last record; other text there is still ignored.
TEST(MvwFormat, TheSheetSizeAndScanningFollowTheLastRecordWhenSet) {
    const QByteArray golden = readAll(dataPath("template/golden-v2.mvw"));
    const QByteArray a4 = "\"MidaLamina\"\r\n 297 \r\n 210 \r\n";
    const QByteArray scan = "\"Exploracio\"\r\n\"Mode=files\"\r\n";
    const struct {
        QByteArray bytes;
        QSize size;
        QString scanning;
    } cases[] = {{golden, {270, 190}, ""},
                 {golden + a4, {297, 210}, ""},
                 {golden + a4 + scan, {297, 210}, "Mode=files"},
                 {golden + scan, {270, 190}, "Mode=files"},
                 {golden + "\"MidaLamina\"\r\n 0 \r\n 210 \r\n", {270, 190}, ""},
                 {golden + "\"altres\"\r\n 297 \r\n 210 \r\n", {270, 190}, ""},
                 {golden + "brossa", {270, 190}, ""}};
    for (const auto& c : cases) {
        Template t;
        ASSERT_FALSE(readMvw(c.bytes, t)) << c.bytes.mid(golden.size()).data();
        EXPECT_EQ(QSize(t.SheetWidthMm, t.SheetHeightMm), c.size)
            << c.bytes.mid(golden.size()).data();
        EXPECT_EQ(t.Exploracio, c.scanning) << c.bytes.mid(golden.size()).data();
    }
    Template t = goldenVersion2();
    t.SheetWidthMm = 297;
    t.SheetHeightMm = 210;
    t.Exploracio = QStringLiteral("Mode=files");
    EXPECT_EQ(writeMvw(t), golden + a4 + scan);
    Template saveAs;
    ASSERT_FALSE(readMvw(writeMvwSaveAs(t), saveAs));
    EXPECT_EQ(QSize(saveAs.SheetWidthMm, saveAs.SheetHeightMm), QSize(297, 210));
}

// Cells and page pictures follow the records too, in both layouts; a broken or
// unknown record ends what is read there and loses nothing before it.
TEST(MvwFormat, CellsAndPagePicturesFollowTheLastRecord) {
    const QByteArray golden = readAll(dataPath("template/golden-v2.mvw"));
    const QByteArray page2 = "\"FonsPagina\"\r\n 2 \r\n\"fons, 2.png\"\r\n";
    const QByteArray cell3 = "\"Cella\"\r\n 3 \r\n\"symbol:1F415\"\r\n\"gos\"\r\n 1 \r\n"
                             "\"#FFEB3B\"\r\n\"\"\r\n";
    Template composed = goldenVersion2();
    composed.setPagePicture(2, QStringLiteral("fons, 2.png"));
    composed.area(3).Cell = AreaCell{QStringLiteral("symbol:1F415"), QStringLiteral("gos"),
                                     LabelPlacement::Above, 0xFFEB3BU, std::nullopt};
    EXPECT_EQ(writeMvw(composed), golden + page2 + cell3);
    for (const QByteArray& bytes : {writeMvw(composed), writeMvwSaveAs(composed)}) {
        Template t;
        ASSERT_FALSE(readMvw(bytes, t));
        EXPECT_EQ(t.PagePictures, composed.PagePictures);
        EXPECT_TRUE(t.area(3).Cell == composed.area(3).Cell);
        EXPECT_FALSE(t.area(1).Cell.has_value());
    }

    const struct {
        QByteArray tail;
        bool page2Read;
        bool cell3Read;
    } cases[] = {
        {"\"Cella\"\r\n 9 \r\n\"a.png\"\r\n\"\"\r\n 0 \r\n\"\"\r\n\"\"\r\n" + page2, true, false},
        {page2 + "\"Cella\"\r\n 3 \r\n\"a.png\"\r\n 7 \r\n" + cell3, true, false},
        {"\"altres\"\r\n" + page2 + cell3, false, false},
        {"\"FonsPagina\"\r\n 5 \r\n\"x.png\"\r\n" + cell3, false, true}};
    for (const auto& c : cases) {
        Template t;
        ASSERT_FALSE(readMvw(golden + c.tail, t)) << c.tail.data();
        EXPECT_EQ(!t.pagePicture(2).isEmpty(), c.page2Read) << c.tail.data();
        EXPECT_EQ(t.area(3).Cell.has_value(), c.cell3Read) << c.tail.data();
        EXPECT_TRUE(t.PagePictures.size() <= 1) << c.tail.data();
    }
}

// Version 0 reads nothing more; a negative revision is not newer.
TEST(MvwFormat, VersionAndRevisionDecideTheBranch) {
    const QByteArray rest = readAll(dataPath("template/golden-v2.mvw")).mid(10);
    const std::tuple<QByteArray, int, int> cases[] = {{" 3 \r\n 0 \r\n", 14, 0},
                                                      {" 2 \r\n 1 \r\n", 14, 0},
                                                      {" 0 \r\n 0 \r\n", 0, 0},
                                                      {" 2 \r\n-1 \r\n", 0, 3}};
    for (const auto& [start, message, areas] : cases) {
        Template t;
        const auto error = readMvw(start + rest, t);
        EXPECT_EQ(error ? error->message : 0, message) << start.data();
        EXPECT_EQ(t.AreaCount(), areas) << start.data();
    }
}

TEST(MvwFormat, BrokenTextSaysWhereReadingFailed) {
    const QByteArray good = readAll(dataPath("template/golden-v2.mvw"));
    const auto replaced = [&good](const char* from, const char* to) {
        return QByteArray(good).replace(from, to);
    };
    const struct {
        const char* name;
        QByteArray bytes;
        int line;
    } cases[] = {
        {"nothing at all", "", 1},
        {"only the version", " 2 \r\n", 2},
        {"cut in the header", good.left(good.indexOf("\"tecles")), 8},
        {"text where AreaCount goes", replaced(" 3 \r\n\"ordres", "x\r\n\"ordres"), 4},
        {"negative AreaCount", replaced(" 3 \r\n\"ordres", "-1 \r\n\"ordres"), 4},
        {"more areas announced", replaced(" 3 \r\n\"ordres", " 4 \r\n\"ordres"), 42},
        {"number where a quoted text goes", replaced("\"clips\"", " 5 "), 7},
        {"cut inside an ActionText", good.left(good.indexOf("hola") + 2), 24},
        {"coordinate beyond 16 bits", replaced(" 10 \r\n", " 99999 \r\n"), 18},
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
