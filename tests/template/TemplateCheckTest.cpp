#include "template/TemplateCheck.h"

#include "support/TestAreas.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(TemplateCheck, ListsWhatATeacherShouldFix) {
    QTemporaryDir dir;
    test::writeAll(QDir(dir.path()).filePath(QStringLiteral("bell.WAV")), "RIFF");
    test::writeAll(QDir(dir.path()).filePath(QStringLiteral("a.bmp")), "BM");
    Template t;
    t.PageCount = 2;
    t.FitxGraf = QStringLiteral("C:\\fotos, 2003\\lamina.bmp");
    using test::makeArea;
    t.AppendArea(makeArea(0, 0, 10, 10, 1, "{|Sona BELL.WAV}{|Enganxa A.BMP}"));
    t.AppendArea(makeArea(0, 0, 10, 10, 3));
    t.AppendArea(makeArea(0, 0, 0, 10, 0));
    t.AppendArea(makeArea(0, 0, 10, 0, 2, "{|Sona MUSICA.MID}"));
    t.AppendArea(makeArea(0, 0, 10, 10, 1, "{|suena bell.wav}"));
    t.area(1).Clip = QStringLiteral("a.bmp");
    t.area(4).Clip = QStringLiteral("falta.txt");

    using K = TemplateProblem::Kind;
    const struct {
        K kind;
        int16_t area;
        const char* text;
    } expected[] = {
        {K::SheetImageComma, 0, "C:\\fotos, 2003\\lamina.bmp"},
        {K::SheetImageMissing, 0, "C:\\fotos, 2003\\lamina.bmp"},
        {K::PageOutOfRange, 2, "3"},
        {K::PageOutOfRange, 3, "0"},
        {K::ZeroSize, 3, ""},
        {K::ZeroSize, 4, ""},
        {K::ClipMissing, 4, "falta.txt"},
        {K::FileMissing, 4, "MUSICA.MID"},
        {K::SoundNotPlayable, 5, "bell.wav"},
    };
    const QList<TemplateProblem> problems = checkTemplate(t, dir.path());
    ASSERT_EQ(problems.size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(problems[i].kind, expected[i].kind) << i;
        EXPECT_EQ(problems[i].area, expected[i].area) << i;
        EXPECT_EQ(problems[i].text, QString::fromUtf8(expected[i].text)) << i;
    }
}

} // namespace
} // namespace mervak
