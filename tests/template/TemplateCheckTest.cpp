#include "template/TemplateCheck.h"

#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

Area areaWith(int16_t page, int16_t x1, int16_t y1, const char* text, const char* clip = "") {
    Area a;
    a.Page = page;
    a.X1 = x1;
    a.Y1 = y1;
    a.ActionText = QString::fromUtf8(text);
    a.Clip = QString::fromUtf8(clip);
    return a;
}

TEST(TemplateCheck, ListsWhatATeacherShouldFix) {
    QTemporaryDir dir;
    test::writeAll(QDir(dir.path()).filePath(QStringLiteral("bell.WAV")), "RIFF");
    test::writeAll(QDir(dir.path()).filePath(QStringLiteral("a.bmp")), "BM");
    Template t;
    t.PageCount = 2;
    t.FitxGraf = QStringLiteral("C:\\fotos, 2003\\lamina.bmp");
    t.AppendArea(areaWith(1, 10, 10, "{|Sona BELL.WAV}{|Enganxa A.BMP}", "a.bmp"));
    t.AppendArea(areaWith(3, 10, 10, ""));
    t.AppendArea(areaWith(0, 0, 10, ""));
    t.AppendArea(areaWith(2, 10, 0, "{|Sona MUSICA.MID}", "falta.txt"));
    t.AppendArea(areaWith(1, 10, 10, "{|suena bell.wav}"));

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

TEST(TemplateCheck, AGoodTemplateHasNoProblems) {
    Template t;
    t.AppendArea(areaWith(1, 5, 5, "hola"));
    EXPECT_TRUE(checkTemplate(t, QDir::tempPath()).isEmpty());
}

} // namespace
} // namespace mervak
