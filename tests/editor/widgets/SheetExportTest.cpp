#include "editor/widgets/SheetExport.h"

#include "support/TestFiles.h"
#include "template/Template.h"
#include "template/TemplateFile.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace mervak {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kPointsPerInch = 72;

// Runs a poppler tool; fails the test when it is missing or fails.
QString runTool(const QString& tool, const QStringList& arguments) {
    if (QStandardPaths::findExecutable(tool).isEmpty()) {
        ADD_FAILURE() << tool.toStdString() << " is missing: install poppler-utils";
        return {};
    }
    QProcess process;
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << tool.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

struct PdfInfo {
    int pages = 0;
    QSizeF sizeMm;
};

PdfInfo pdfInfo(const QString& pdf) {
    const QString out = runTool("pdfinfo", {pdf});
    PdfInfo info;
    info.pages = QRegularExpression("Pages:\\s+(\\d+)").match(out).captured(1).toInt();
    const auto size = QRegularExpression("Page size:\\s+([\\d.]+) x ([\\d.]+) pts").match(out);
    info.sizeMm = QSizeF(size.captured(1).toDouble(), size.captured(2).toDouble()) * kMmPerInch /
                  kPointsPerInch;
    return info;
}

// The first page rendered at `dpi`.
QImage render(const QString& pdf, int dpi, int page = 1) {
    const QString prefix = pdf + QStringLiteral(".render");
    runTool("pdftoppm", {"-png", "-r", QString::number(dpi), "-f", QString::number(page), "-l",
                         QString::number(page), "-singlefile", pdf, prefix});
    return QImage(prefix + QStringLiteral(".png"));
}

bool isRed(QColor c) {
    return c.red() > 200 && c.green() < 60 && c.blue() < 60;
}
bool isOutline(QColor c) {
    return c.blue() > 120 && c.red() < 100;
}

// The bounding box of the red pixels.
QRect redExtent(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (isRed(image.pixelColor(x, y)))
                box = box.united(QRect(x, y, 1, 1));
    return box;
}

QImage redPicture() {
    QImage picture(300, 200, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return picture;
}

Template threePages() {
    Template t;
    t.TemplateFileName = QStringLiteral("/tmp/fulls.mvw");
    t.PageCount = 3;
    t.CurrentPage = 2;
    Area area;
    area.X0 = 0;
    area.Y0 = 0;
    area.X1 = 60;
    area.Y1 = 60; // the lower-left quarter
    area.Page = 2;
    area.ActionText = QStringLiteral("hola{ENTER}");
    t.AppendArea(area);
    return t;
}

TEST(SheetExport, PlacesThePictureAtTrueSizeCentredOnThePaper) {
    const struct {
        const char* name;
        PaperSize paper;
        QSizeF surface;
        QSizeF expectedPaper;
    } cases[] = {
        {"EASY surface on A4, landscape", PaperSize::A4, {270, 190}, {297, 210}},
        {"EASY surface on A3", PaperSize::A3, {270, 190}, {420, 297}},
        {"tall surface on A4, portrait", PaperSize::A4, {150, 250}, {210, 297}},
        {"whole A3", PaperSize::A3, {420, 297}, {420, 297}},
    };
    constexpr int kDpi = 50;
    QTemporaryDir dir;
    for (const auto& c : cases) {
        SheetExportOptions options;
        options.paper = c.paper;
        options.surfaceMm = c.surface;
        options.outlines = false;
        const QString pdf = dir.filePath(QString::fromUtf8(c.name) + ".pdf");
        QString error;
        ASSERT_TRUE(SheetExport::exportPdf(threePages(), redPicture(), options, pdf,
                                           Language::Catalan, &error))
            << c.name << " " << error;
        const PdfInfo info = pdfInfo(pdf);
        EXPECT_EQ(info.pages, 1) << c.name;
        EXPECT_NEAR(info.sizeMm.width(), c.expectedPaper.width(), 0.5) << c.name;
        EXPECT_NEAR(info.sizeMm.height(), c.expectedPaper.height(), 0.5) << c.name;

        const QImage page = render(pdf, kDpi);
        ASSERT_FALSE(page.isNull()) << c.name;
        const QRect red = redExtent(page);
        const double dotsPerMm = kDpi / kMmPerInch;
        EXPECT_NEAR(red.width(), c.surface.width() * dotsPerMm, 2) << c.name;
        EXPECT_NEAR(red.height(), c.surface.height() * dotsPerMm, 2) << c.name;
        EXPECT_NEAR(red.left(), page.width() - 1 - red.right(), 2) << c.name << " centred across";
        EXPECT_NEAR(red.top(), page.height() - 1 - red.bottom(), 2) << c.name << " centred down";
    }
}

TEST(SheetExport, OnePdfPagePerTemplatePageOrTheCurrentOne) {
    QTemporaryDir dir;
    const QString pdf = dir.filePath("sheet.pdf");
    QString error;
    SheetExportOptions options;
    for (const auto& [allPages, pages] : {std::pair{true, 3}, std::pair{false, 1}}) {
        options.allPages = allPages;
        ASSERT_TRUE(
            SheetExport::exportPdf(threePages(), QImage(), options, pdf, Language::Catalan, &error))
            << error;
        EXPECT_EQ(pdfInfo(pdf).pages, pages) << "allPages " << allPages;
    }
}

TEST(SheetExport, OutlinesTheAreasOfTheirOwnPageOnly) {
    constexpr int kDpi = 100;
    QTemporaryDir dir;
    const QString pdf = dir.filePath("outlines.pdf");
    SheetExportOptions options;
    options.allPages = true;
    QString error;
    ASSERT_TRUE(
        SheetExport::exportPdf(threePages(), redPicture(), options, pdf, Language::Catalan, &error))
        << error;
    // The Area spans x 0..60 and y 0..60 of 120: its right edge lies at the
    // middle of the surface, its top edge half-way down.
    const auto countOutline = [&](const QImage& page) {
        const QRect red = redExtent(page);
        const int middleX = red.left() + qRound(red.width() / 2.0);
        const int lowerY = red.top() + qRound(red.height() * 0.75);
        int found = 0;
        for (int x = middleX - 3; x <= middleX + 3; ++x)
            found += isOutline(page.pixelColor(x, lowerY)) ? 1 : 0;
        return found;
    };
    EXPECT_GT(countOutline(render(pdf, kDpi, 2)), 0) << "page 2 holds the Area";
    EXPECT_EQ(countOutline(render(pdf, kDpi, 1)), 0) << "page 1 has no Area";

    options.outlines = false;
    ASSERT_TRUE(SheetExport::exportPdf(threePages(), redPicture(), options, pdf, Language::Catalan,
                                       &error));
    EXPECT_EQ(countOutline(render(pdf, kDpi, 2)), 0) << "outlines switched off";
}

TEST(SheetExport, RefusesWhatCannotBePrinted) {
    QTemporaryDir dir;
    const struct {
        const char* name;
        PaperSize paper;
        QSizeF surface;
        QString path;
        const char* errorPart;
    } cases[] = {
        {"larger than A4", PaperSize::A4, {300, 220}, dir.filePath("a.pdf"), "no cabe"},
        {"larger than A3", PaperSize::A3, {430, 200}, dir.filePath("b.pdf"), "no cabe"},
        {"empty surface", PaperSize::A4, {0, 190}, dir.filePath("c.pdf"), "no cabe"},
        {"folder missing",
         PaperSize::A4,
         {270, 190},
         dir.filePath("no/such/d.pdf"),
         "No se ha podido guardar"},
    };
    for (const auto& c : cases) {
        SheetExportOptions options;
        options.paper = c.paper;
        options.surfaceMm = c.surface;
        QString error;
        EXPECT_FALSE(SheetExport::exportPdf(threePages(), redPicture(), options, c.path,
                                            Language::Spanish, &error))
            << c.name;
        EXPECT_TRUE(error.contains(c.errorPart)) << c.name << ": " << error;
        EXPECT_FALSE(QFile::exists(c.path)) << c.name;
    }
    EXPECT_TRUE(SheetExport::fits({420, 297}, PaperSize::A3));
    EXPECT_TRUE(SheetExport::fits({210, 297}, PaperSize::A4));
    EXPECT_FALSE(SheetExport::fits({210.5, 297}, PaperSize::A4));
}

TEST(SheetExport, LoadsThePictureBesideTheTemplate) {
    QTemporaryDir dir;
    ASSERT_TRUE(redPicture().save(dir.filePath("Fons.png")));
    Template t;
    t.TemplateFileName = dir.filePath("fulls.mvw");
    const struct {
        const char* name;
        QString stored;
        bool loads;
        bool error;
    } cases[] = {
        {"no picture", QString(), false, false},
        {"relative, other letter case", "fons.PNG", true, false},
        {"Windows form", "C:\\escola\\fons.png", true, false},
        {"missing", "cap.png", false, true},
    };
    for (const auto& c : cases) {
        t.FitxGraf = c.stored;
        QString error;
        const QImage picture = SheetExport::loadPicture(t, Language::Catalan, &error);
        EXPECT_EQ(!picture.isNull(), c.loads) << c.name;
        EXPECT_EQ(!error.isEmpty(), c.error) << c.name;
        EXPECT_EQ(error.startsWith(Message(Language::Catalan, 110)), c.error) << c.name;
    }
}

TEST(SheetExport, ThumbnailKeepsThePictureShapeAndOutlinesTheCurrentPage) {
    QTemporaryDir dir;
    const QString png = dir.filePath("mini.png");
    QString error;
    ASSERT_TRUE(
        SheetExport::saveThumbnail(threePages(), redPicture(), png, Language::Catalan, &error))
        << error;
    const QImage mini(png);
    ASSERT_EQ(mini.size(), QSize(240, 160));
    EXPECT_TRUE(isRed(mini.pixelColor(200, 20))) << "outside the Area";
    EXPECT_TRUE(isOutline(mini.pixelColor(60, 80)) || isOutline(mini.pixelColor(60, 79)))
        << "top edge of the lower-left quarter";

    ASSERT_TRUE(
        SheetExport::saveThumbnail(threePages(), QImage(), png, Language::Catalan, &error, 100));
    EXPECT_EQ(QImage(png).width(), 100) << "no picture: the surface's shape";
    EXPECT_FALSE(SheetExport::saveThumbnail(threePages(), redPicture(), dir.filePath("x/y.png"),
                                            Language::Catalan, &error));
    EXPECT_TRUE(error.startsWith("No s'ha pogut desar ")) << error;
}

// Finds the dialog the export has opened, waiting for it to show.
template <typename D> D* openDialog(const char* objectName = nullptr) {
    for (int tries = 0; tries < 200; ++tries) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<D*>(widget);
                dialog && dialog->isVisible() &&
                (!objectName || dialog->objectName() == objectName))
                return dialog;
        QTest::qWait(10);
    }
    return nullptr;
}

TEST(SheetExport, MenuCommandAsksForOptionsAndFileInSpanish) {
    QTemporaryDir dir;
    const QString pdf = dir.filePath("full.pdf");
    SheetExportOptions options;
    QStringList captions;
    QTimer::singleShot(0, [&] {
        QDialog* choice = openDialog<QDialog>("SheetExportOptions");
        ASSERT_NE(choice, nullptr);
        captions.append(choice->windowTitle());
        for (const QAbstractButton* button : choice->findChildren<QAbstractButton*>())
            captions.append(button->text());
        choice->findChild<QComboBox*>()->setCurrentIndex(1); // A3
        for (QPushButton* button : choice->findChildren<QPushButton*>())
            if (button->text() == "Aceptar")
                button->click();
        QTimer::singleShot(0, [&] {
            auto* files = openDialog<QFileDialog>();
            ASSERT_NE(files, nullptr);
            captions.append(files->windowTitle());
            files->selectFile(pdf);
            static_cast<QDialog*>(files)->accept(); // public as a QDialog
        });
    });
    EXPECT_TRUE(SheetExport::exportWithDialog(nullptr, threePages(), Language::Spanish, &options));
    for (const char* caption : {"Guardar la lámina en PDF", "Página actual", "Todas las páginas",
                                "Contornos y etiquetas de las áreas", "Aceptar", "Cancelar"})
        EXPECT_TRUE(captions.contains(QString::fromUtf8(caption))) << caption;
    EXPECT_EQ(options.paper, PaperSize::A3) << "the choice is kept for next time";
    EXPECT_NEAR(pdfInfo(pdf).sizeMm.width(), 420, 0.5);
}

TEST(SheetExport, ThumbnailCommandAsksWhereToSave) {
    QTemporaryDir dir;
    const QString png = dir.filePath("mini.png");
    for (const bool save : {false, true}) {
        QTimer::singleShot(0, [&] {
            auto* files = openDialog<QFileDialog>();
            ASSERT_NE(files, nullptr);
            EXPECT_EQ(files->windowTitle(), "Desar mini-làmina");
            files->selectFile(png);
            if (save)
                static_cast<QDialog*>(files)->accept(); // public as a QDialog
            else
                files->reject();
        });
        EXPECT_EQ(SheetExport::saveThumbnailWithDialog(nullptr, threePages(), Language::Catalan),
                  save);
        EXPECT_EQ(QFile::exists(png), save);
    }
}

} // namespace
} // namespace mervak
