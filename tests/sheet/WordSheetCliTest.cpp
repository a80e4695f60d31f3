#include "support/CliRun.h"
#include "template/TemplateFile.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

class WordSheetCli : public ::testing::Test {
protected:
    QTemporaryDir dir;
    QString file(const QString& name) const { return QDir(dir.path()).filePath(name); }
    test::CliRun run(const QStringList& arguments) const {
        return test::runProgram(QStringLiteral(MERVAK_CLI), arguments, dir.path());
    }
};

// What tesseract reads in a picture, in lower case.
QString ocr(const QString& png) {
    QProcess process;
    process.start(QStringLiteral("tesseract"),
                  {png, QStringLiteral("-"), QStringLiteral("-l"), QStringLiteral("cat")});
    process.waitForFinished(60000);
    return QString::fromUtf8(process.readAllStandardOutput()).toLower();
}

// The share of a box's pixels that are neither white nor grey: a symbol in colour.
double colourShare(const QImage& image, const QRect& box) {
    int coloured = 0;
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x) {
            const QColor c = image.pixelColor(x, y);
            coloured += std::max({c.red(), c.green(), c.blue()}) -
                            std::min({c.red(), c.green(), c.blue()}) >
                        40;
        }
    return double(coloured) / (box.width() * box.height());
}

TEST_F(WordSheetCli, MakesPagesThatPrintEachWordWithItsSymbol) {
    const test::CliRun made = run({"sheet", "--words", "gos gat vaca cavall ovella porc poma",
                                   "--rows", "2", "--columns", "3", "--nav", "-o", "animals.mvw"});
    ASSERT_EQ(made.status, 0) << made.err.toStdString();
    Template t;
    ASSERT_FALSE(openTemplate(t, file(QStringLiteral("animals.mvw"))).error);
    EXPECT_EQ(t.PageCount, 2);
    EXPECT_EQ(t.area(1).ActionText, QStringLiteral("gos {|Llegir gos}"));
    EXPECT_EQ(t.area(1).Cell->Picture, QStringLiteral("symbol:1F415"));
    EXPECT_EQ(t.FitxGraf, QStringLiteral("animals-lamina1.png"));
    EXPECT_FALSE(QImage(file(QStringLiteral("animals-lamina2.png"))).isNull());

    ASSERT_EQ(
        run({"render", "animals.mvw", "--page", "1", "-o", "page1.png", "--dpi", "100"}).status, 0);
    const QString read = ocr(file(QStringLiteral("page1.png")));
    for (const char* word : {"gos", "gat", "vaca", "cavall", "ovella", "porc"})
        EXPECT_TRUE(read.contains(QLatin1String(word))) << word << " in:\n" << read.toStdString();
    EXPECT_FALSE(read.contains(QLatin1String("poma"))) << "page 2's word";
    // The dog's symbol fills the upper part of the first cell, in colour.
    const QImage page(file(QStringLiteral("page1.png")));
    const double perUnitX = page.width() / 120.0;
    const double perUnitY = page.height() / 120.0;
    const QRect firstCellTop(
        QPoint(int(t.area(1).X0 * perUnitX), int((120 - t.area(1).Y1) * perUnitY)),
        QPoint(int(t.area(1).X1 * perUnitX), int((120 - t.area(1).Y1 + 15) * perUnitY)));
    EXPECT_GT(colourShare(page, firstCellTop), 0.05);
    // The symbols travel inside a board package for other programs.
    const test::CliRun exported = run({"export", "animals.mvw", "-o", "animals.obz"});
    EXPECT_TRUE(QFileInfo::exists(file(QStringLiteral("animals.obz"))));
    EXPECT_FALSE(exported.err.contains(QStringLiteral("símbol"))) << exported.err.toStdString();
}

TEST_F(WordSheetCli, SpeaksSpanishAndSaysWhichWordsFoundNoSymbol) {
    const test::CliRun made = run({"sheet", "--words", "perro, zzyzx", "--rows", "1", "--columns",
                                   "2", "--lang", "es", "-o", "perros.mvw"});
    EXPECT_EQ(made.status, 3);
    EXPECT_TRUE(made.err.contains(QStringLiteral("zzyzx"))) << made.err.toStdString();
    Template t;
    ASSERT_FALSE(openTemplate(t, file(QStringLiteral("perros.mvw"))).error);
    EXPECT_EQ(t.area(1).ActionText, QStringLiteral("perro {|Leer perro}"));
    EXPECT_EQ(t.area(2).Cell->Picture, QString());
    EXPECT_EQ(
        run({"sheet", "--words", "gos", "--rows", "0", "--columns", "2", "-o", "x.mvw"}).status, 2);
}

} // namespace
} // namespace mervak
