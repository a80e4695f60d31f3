#include "template/TemplateCheck.h"

#include "support/TestAreas.h"
#include "support/TestFiles.h"
#include "template/FileReferences.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(FileReferences, FindsTheFileArgumentsOfPasteAndSoundBlocks) {
    const std::pair<const char*, QStringList> cases[] = {
        {"{|Enganxa a.bmp}", {"a.bmp"}},
        {"x{|SONA  b c.wav  }y{|Suena d.WAV}", {"b c.wav", "d.WAV"}},
        {"{|engancha e.txt}", {"e.txt"}},
        {"{|Pagina 2}{|Executa prog.exe}{|Carrega x.mvw}", {}},
        {"{|Enganxa {|RM }}", {}},
        {"{|SIM 5 {{|Sona si.WAV}} {}}", {"si.WAV"}},
        {"{|Sona }", {}},
        {"{|Sona x.wav", {}},
        {"{|Sona a|b.wav}", {}},
    };
    for (const auto& [text, expected] : cases) {
        QStringList names;
        for (const FileReference& reference : fileReferences(QString::fromUtf8(text)))
            names.append(reference.name);
        EXPECT_EQ(names, expected) << text;
    }
}

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
    const std::tuple<K, int16_t, const char*> expected[] = {
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
        const auto& [kind, area, text] = expected[i];
        EXPECT_EQ(problems[i].kind, kind) << i;
        EXPECT_EQ(problems[i].area, area) << i;
        EXPECT_EQ(problems[i].text, QString::fromUtf8(text)) << i;
    }
}

} // namespace
} // namespace mervak
