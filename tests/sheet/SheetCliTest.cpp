#include "support/CliRun.h"
#include "support/TestFiles.h"
#include "template/TemplateFile.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

QString tool(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(20000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

class SheetCli : public ::testing::Test {
protected:
    QTemporaryDir dir;
    QString file(const QString& name) const { return QDir(dir.path()).filePath(name); }
    test::CliRun run(const QStringList& arguments) const {
        return test::runProgram(QStringLiteral(MERVAK_CLI), arguments, dir.path());
    }

    // An A4 Template with two Areas on page 1.
    void SetUp() override {
        Template t;
        t.SheetWidthMm = 297;
        t.SheetHeightMm = 210;
        for (const int16_t left : {10, 70}) {
            Area a;
            a.X0 = left;
            a.X1 = static_cast<int16_t>(left + 40);
            a.Y0 = 40;
            a.Y1 = 100;
            a.Page = 1;
            a.ActionText = QStringLiteral("{|Llegir gos}gos ");
            t.AppendArea(a);
        }
        ASSERT_FALSE(saveTemplate(t, file(QStringLiteral("fulla.mvw"))).error);
    }
};

TEST_F(SheetCli, RefusesWhatItCannotDo) {
    const QString svg = test::dataPath(QStringLiteral("sheet/red-circle.svg"));
    const std::pair<QStringList, const char*> cases[] = {
        {{"cell", "fulla.mvw", "--page", "1", "--area", "3"}, "de 1 a 2"},
        {{"cell", "fulla.mvw", "--page", "2", "--area", "1"}, "de 1 a 1"},
        {{"cell", "fulla.mvw", "--page", "1", "--area", "1", "--colour", "groc"}, "#RRGGBB"},
        {{"cell", "fulla.mvw", "--page", "1", "--area", "1", "--symbol", "gos"}, "1F415"},
        {{"cell", "fulla.mvw", "--page", "1", "--area", "1", "--picture", "cap.png"}, "cap.png"},
        {{"cell", "fulla.mvw", "--page", "1", "--area", "1", "--symbol", "1F415", "--picture", svg},
         "Ús: mervak-cli cell"},
        {{"render", "fulla.mvw", "--page", "1", "-o", "x.jpg"}, "Ús: mervak-cli render"},
        {{"render", "fulla.mvw", "--page", "1", "-o", "x.png", "--dpi", "5000"}, "Ús:"},
        {{"render", "fulla.mvw", "--page", "3", "-o", "x.png"}, "de 1 a 1"},
    };
    const QByteArray before = test::readAll(file(QStringLiteral("fulla.mvw")));
    for (const auto& [arguments, message] : cases) {
        const test::CliRun result = run(arguments);
        EXPECT_EQ(result.status, 2) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(result.err.contains(QString::fromUtf8(message))) << result.err.toStdString();
    }
    EXPECT_EQ(test::readAll(file(QStringLiteral("fulla.mvw"))), before);
}

// A cell made from the command line prints: the PDF has the sheet's size in
// millimetres, its label as text and its SVG picture as a drawing, not an image.
TEST_F(SheetCli, CellThenRenderGivesATrueSizeSheet) {
    const QString svg = test::dataPath(QStringLiteral("sheet/red-circle.svg"));
    ASSERT_EQ(run({"cell", "fulla.mvw", "--page", "1", "--area", "2", "--picture", svg, "--label",
                   "cavall", "--colour", "#8bc34a"})
                  .status,
              0);
    ASSERT_EQ(run({"cell", "fulla.mvw", "--page", "1", "--area", "1"}).status, 0);
    Template t;
    ASSERT_FALSE(openTemplate(t, file(QStringLiteral("fulla.mvw"))).error);
    ASSERT_TRUE(t.area(2).Cell.has_value());
    EXPECT_EQ(t.area(2).Cell->Background, 0x8BC34AU);
    EXPECT_EQ(t.FitxGraf, QStringLiteral("fulla-lamina1.png"));

    ASSERT_EQ(run({"render", "fulla.mvw", "--page", "1", "-o", "fulla.pdf"}).status, 0);
    const QRegularExpression size(QStringLiteral("Page size:\\s+([0-9.]+) x ([0-9.]+) pts"));
    const auto match = size.match(tool(QStringLiteral("pdfinfo"), {file("fulla.pdf")}));
    ASSERT_TRUE(match.hasMatch());
    EXPECT_NEAR(match.captured(1).toDouble() * 25.4 / 72, 297, 0.2);
    EXPECT_NEAR(match.captured(2).toDouble() * 25.4 / 72, 210, 0.2);
    const QString words = tool(QStringLiteral("pdftotext"), {file("fulla.pdf"), "-"});
    EXPECT_TRUE(words.contains(QStringLiteral("cavall")) && words.contains(QStringLiteral("gos")))
        << words.toStdString();
    const QStringList images = tool(QStringLiteral("pdfimages"), {"-list", file("fulla.pdf")})
                                   .split(u'\n', Qt::SkipEmptyParts);
    EXPECT_EQ(images.size(), 2) << "only the heading lines: " << images.join(u'\n').toStdString();

    ASSERT_EQ(run({"render", "fulla.mvw", "--page", "1", "-o", "fulla.png", "--dpi", "50"}).status,
              0);
    EXPECT_EQ(QImage(file("fulla.png")).size(), QSize(585, 413));
}

} // namespace
} // namespace mervak
