#include "template/TemplateFile.h"

#include "support/TestAreas.h"
#include "support/TestFiles.h"
#include "template/MvwWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::dataPath;
using test::readAll;
using test::writeAll;

// Where each reader fails is tested with the readers; here, what opening makes of it.
TEST(TemplateFile, BrokenFilesLeaveAnEmptyUntitledTemplate) {
    // The file, the message, the line and whether the message names the file.
    const std::tuple<const char*, int, int, bool> cases[] = {{"random-bytes.mvw", 3, 1, true},
                                                             {"version-3.mvw", 14, 1, false},
                                                             {"page-zero.mvd", 2, 2, false},
                                                             {"unknown.txt", 2, 0, false},
                                                             {"does-not-exist.mvw", 3, 0, true}};
    for (const auto& [name, message, line, pathShown] : cases) {
        Template t;
        ASSERT_FALSE(openTemplate(t, dataPath("template/golden-v2.mvw")).error);
        const QString path = QFileInfo(dataPath("template/broken/") + name).absoluteFilePath();
        const OpenOutcome outcome = openTemplate(t, path);
        ASSERT_TRUE(outcome.error) << name;
        EXPECT_EQ(outcome.error->message, message) << name;
        EXPECT_EQ(outcome.error->line, line) << name;
        EXPECT_EQ(outcome.error->argument == path, pathShown) << name;
        EXPECT_TRUE(t.isUntitled()) << name;
        EXPECT_EQ(writeMvw(t), writeMvw(Template())) << name;
    }
}

TEST(TemplateFile, OpeningSetsTheNameAndTheFirstPage) {
    Template t;
    t.CurrentPage = 2;
    const OpenOutcome outcome =
        openTemplate(t, QStringLiteral("GOLDEN-V2.MVW"), dataPath("template"));
    ASSERT_FALSE(outcome.error);
    EXPECT_EQ(t.TemplateFileName, QFileInfo(dataPath("template/golden-v2.mvw")).absoluteFilePath());
    EXPECT_EQ(windowTitle(t), QStringLiteral("Mervak - ") + t.TemplateFileName);
    EXPECT_EQ(t.CurrentPage, 1);
    EXPECT_EQ(t.PageAreaCount, 2);
    EXPECT_EQ(t.CurrentArea, 0);
    EXPECT_TRUE(t.Modified) << "every appended Area sets the modified flag";
    EXPECT_FALSE(openTemplate(t, QString()).error);
    EXPECT_EQ(t.AreaCount(), 3) << "an empty name does nothing";
    EXPECT_FALSE(t.isUntitled());
    t.TemplateFileName = "(Sense nom)";
    EXPECT_TRUE(t.isUntitled()) << "the untitled name compares without case";
}

class FolderTest : public ::testing::Test {
protected:
    QTemporaryDir dir;
    QString file(const QString& name) const { return QDir(dir.path()).filePath(name); }
    void mkdir(const QString& name) const { QDir(dir.path()).mkpath(name); }
};

// The export leaves out the sheet image name only when the import would not find it again.
TEST_F(FolderTest, AnMvdImportTakesThePictureBesideIt) {
    writeAll(file("LECTURA.MVD"), readAll(dataPath("template/golden.mvd")));
    Template t;
    OpenOutcome outcome = openTemplate(t, file("LECTURA.MVD"));
    ASSERT_FALSE(outcome.error);
    ASSERT_TRUE(outcome.warning);
    EXPECT_EQ(outcome.warning->message, 15);
    EXPECT_EQ(outcome.warning->text(Language::Catalan),
              QStringLiteral("Dravon no troba el fitxer ") + file("LECTURA.BMP"));
    EXPECT_EQ(t.FitxGraf, QStringLiteral("LECTURA.BMP"));
    EXPECT_EQ(t.AreaCount(), 2);
    EXPECT_EQ(saveTemplateAs(t, file("lectura2.mvd")).losses.size(), 1)
        << "FitxGraf names another picture than lectura2";
    EXPECT_TRUE(saveTemplateAs(t, file("lectura.mvd")).losses.isEmpty()) << "names without case";

    writeAll(file("lectura.gif"), "GIF89a");
    outcome = openTemplate(t, file("LECTURA.MVD"));
    EXPECT_FALSE(outcome.warning);
    EXPECT_EQ(t.FitxGraf, QStringLiteral("lectura.gif"));
}

TEST_F(FolderTest, SavingTakesTheNameAndClearsTheModifiedFlagUnlessItFails) {
    Template t;
    t.AppendArea(test::makeArea(0, 0, 0, 0, 1));
    const SaveOutcome failed = saveTemplate(t, file("no-such-folder/a.mvw"));
    ASSERT_TRUE(failed.error);
    EXPECT_EQ(failed.error->message, 104);
    EXPECT_TRUE(t.Modified);
    EXPECT_TRUE(t.isUntitled());

    const SaveOutcome outcome = saveTemplate(t, file("nova.mvw"));
    ASSERT_FALSE(outcome.error);
    EXPECT_FALSE(t.Modified);
    EXPECT_EQ(t.TemplateFileName, file("nova.mvw"));
    EXPECT_TRUE(outcome.copiedFiles.isEmpty());
}

TEST(TemplateFile, SaveAsNameRule) {
    const struct {
        const char* given;
        const char* written;
    } cases[] = {
        {"/t/a.mvw", "/t/a.mvw"}, {"/t/a.MVD", "/t/a.MVD"},   {"/t/a", "/t/a.MVW"},
        {"/t/a.b.c", "/t/a.MVW"}, {"/t.d/a.x", "/t.d/a.MVW"}, {"a.Mvw", "a.Mvw"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(saveAsFileName(QLatin1String(c.given)), QLatin1String(c.written)) << c.given;
}

TEST_F(FolderTest, SaveAsWritesTheVersion1LayoutOrExportsAnMvd) {
    Template t;
    ASSERT_FALSE(openTemplate(t, dataPath("template/golden-v2.mvw")).error);
    ASSERT_FALSE(saveTemplateAs(t, file("copia.txt")).error);
    EXPECT_EQ(t.TemplateFileName, file("copia.MVW"));
    EXPECT_FALSE(t.Modified);
    EXPECT_EQ(readAll(file("copia.MVW")), writeMvwSaveAs(t));

    t.Modified = true;
    const SaveOutcome outcome = saveTemplateAs(t, file("dos.mvd"));
    ASSERT_FALSE(outcome.error);
    EXPECT_EQ(t.TemplateFileName, file("dos.mvd"));
    EXPECT_FALSE(t.Modified);
    EXPECT_FALSE(outcome.losses.isEmpty());
    EXPECT_EQ(readAll(file("dos.mvd")), writeMvd(t).bytes);
}

TEST_F(FolderTest, SavingIntoAnotherFolderTakesTheImageAndClipsAlong) {
    const std::pair<const char*, QByteArray> files[] = {
        {"vella/lamina.bmp", "BM-sheet"},   {"vella/sons/bell.wav", "RIFF-bell"},
        {"vella/dibuix.bmp", "BM-picture"}, {"altra/dibuix.bmp", "BM-other-picture"},
        {"vella/text.txt", "hola"},         {"nova/text.txt", "other text"},
    };
    for (const auto& [name, contents] : files) {
        mkdir(QFileInfo(name).path());
        writeAll(file(name), contents);
    }

    Template t;
    t.FitxGraf = QStringLiteral("C:\\PLANT\\VELLA\\LAMINA.BMP");
    const char* texts[] = {
        "{|Sona sons\\BELL.WAV}a",
        "{|Enganxa dibuix.bmp}{|ENGANXA  dibuix.bmp }", // the double blank is kept
        "{|Enganxa ../altra/dibuix.bmp}",
        "{|Enganxa text.txt}{|Sona falta.wav}{|Enganxa {|RM }}",
    };
    for (const char* text : texts)
        t.AppendArea(test::makeArea(0, 0, 0, 0, 1, text));
    t.area(1).Clip = QStringLiteral("dibuix.bmp");
    ASSERT_FALSE(saveTemplate(t, file("vella/plantilla.mvw")).error);
    ASSERT_EQ(t.FitxGraf, QStringLiteral("C:\\PLANT\\VELLA\\LAMINA.BMP"))
        << "saving in its own folder rewrites nothing";

    const SaveOutcome outcome = saveTemplate(t, file("nova/plantilla.mvw"));
    ASSERT_FALSE(outcome.error);
    EXPECT_EQ(outcome.missingFiles, QStringList{QStringLiteral("falta.wav")});
    EXPECT_EQ(outcome.copiedFiles.size(), 5);
    const std::pair<const char*, QByteArray> copies[] = {
        {"LAMINA.BMP", "BM-sheet"},   {"BELL.WAV", "RIFF-bell"},
        {"dibuix.bmp", "BM-picture"}, {"dibuix-2.bmp", "BM-other-picture"},
        {"text.txt", "other text"},   {"text-2.txt", "hola"},
    };
    for (const auto& [name, contents] : copies)
        EXPECT_EQ(readAll(file(QStringLiteral("nova/") + name)), contents) << name;

    Template reopened;
    ASSERT_FALSE(openTemplate(reopened, file("nova/plantilla.mvw")).error);
    EXPECT_EQ(reopened.FitxGraf, QStringLiteral("LAMINA.BMP"));
    EXPECT_EQ(t.TemplateFileName, file("nova/plantilla.mvw"));
    QStringList written;
    for (int i = 1; i <= 4; ++i) {
        written.append(t.area(i).ActionText);
        EXPECT_TRUE(reopened.area(i) == t.area(i)) << "the open Template is what was written";
    }
    EXPECT_EQ(written,
              (QStringList{"{|Sona BELL.WAV}a", "{|Enganxa dibuix.bmp}{|ENGANXA  dibuix.bmp }",
                           "{|Enganxa dibuix-2.bmp}",
                           "{|Enganxa text-2.txt}{|Sona falta.wav}{|Enganxa {|RM }}"}));
    EXPECT_EQ(t.area(1).Clip, "dibuix.bmp");

    const SaveOutcome again = saveTemplate(t, file("vella/tornada.mvw"));
    ASSERT_FALSE(again.error);
    EXPECT_EQ(again.copiedFiles.size(), 3)
        << "the sheet and dibuix.bmp are there with the same content";
}

// Cell and page pictures are file references like the others; symbols are not files.
TEST_F(FolderTest, CellAndPagePicturesTravelWithTheTemplate) {
    for (const char* name : {"vella/fotos/gos.png", "vella/fotos/gat.png", "vella/fons.png"}) {
        mkdir(QFileInfo(name).path());
        writeAll(file(name), name);
    }
    mkdir(QStringLiteral("nova"));
    Template t;
    const QString pictures[] = {QStringLiteral("fotos\\gos.png"), file("vella/fotos/gat.png"),
                                QStringLiteral("symbol:1F415")};
    for (const QString& picture : pictures) {
        Area a = test::makeArea(0, 0, 10, 10, 1);
        a.Cell = AreaCell{picture, {}, LabelPlacement::Below, {}, {}};
        t.AppendArea(a);
    }
    t.setPagePicture(1, QStringLiteral("fons.png"));
    ASSERT_FALSE(saveTemplate(t, file("vella/cel.mvw")).error);
    EXPECT_EQ(t.area(2).Cell->Picture, QStringLiteral("fotos\\gat.png"))
        << "named inside its folder";

    const SaveOutcome outcome = saveTemplate(t, file("nova/cel.mvw"));
    ASSERT_FALSE(outcome.error);
    EXPECT_EQ(outcome.copiedFiles.size(), 3);
    EXPECT_TRUE(outcome.missingFiles.isEmpty()) << outcome.missingFiles.join(u' ').toStdString();
    const QStringList stored = {t.area(1).Cell->Picture, t.area(2).Cell->Picture,
                                t.area(3).Cell->Picture, t.pagePicture(1)};
    EXPECT_EQ(stored, (QStringList{"gos.png", "gat.png", "symbol:1F415", "fons.png"}));
    EXPECT_EQ(readAll(file("nova/gat.png")), "vella/fotos/gat.png");
}

} // namespace
} // namespace mervak
