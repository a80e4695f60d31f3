#include "editor/widgets/SheetExport.h"

#include "support/DialogButtons.h"
#include "support/ModalAnswers.h"
#include "template/Template.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace mervak {
namespace {

constexpr double kMmPerInch = 25.4;

// Runs a poppler tool; fails the test when it is missing or fails.
QString runTool(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << tool.toStdString() << ": install poppler-utils";
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

struct PdfInfo {
    int pages = 0;
    QSizeF sizeMm;
};

PdfInfo pdfInfo(const QString& pdf) {
    const QString out = runTool("pdfinfo", {pdf});
    const auto size = QRegularExpression("Page size:\\s+([\\d.]+) x ([\\d.]+) pts").match(out);
    return {QRegularExpression("Pages:\\s+(\\d+)").match(out).captured(1).toInt(),
            QSizeF(size.captured(1).toDouble(), size.captured(2).toDouble()) * kMmPerInch / 72};
}

// One page rendered at `dpi`.
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

// Shaped like the tablet's sheet, so that it covers it.
QImage redPicture() {
    QImage picture(270, 190, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return picture;
}

// A picture shaped like the sheet, with a red circle as large as it fits, centred.
QImage redCircle(QSizeF sheetMm) {
    const QSize size = (sheetMm * 3).toSize();
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::red);
    const qreal diameter = std::min(size.width(), size.height());
    painter.drawEllipse(
        QRectF((size.width() - diameter) / 2, (size.height() - diameter) / 2, diameter, diameter));
    return picture;
}

// An Area over the lower-left quarter of page 2 of 3, the page shown.
Template threePages(QSizeF sheetMm = {270, 190}) {
    Template t;
    t.SheetWidthMm = static_cast<int16_t>(sheetMm.width());
    t.SheetHeightMm = static_cast<int16_t>(sheetMm.height());
    t.TemplateFileName = QStringLiteral("/tmp/fulls.mvw");
    t.PageCount = 3;
    t.CurrentPage = 2;
    Area area;
    area.X1 = area.Y1 = 60;
    area.Page = 2;
    area.ActionText = QStringLiteral("hola{ENTER}");
    t.AppendArea(area);
    return t;
}

// A circle in the picture prints as a circle as large as the sheet is high
// (or wide), centred on the paper as the sheet is.
TEST(SheetExport, PrintsTheSheetAtTrueSizeWithACircleRound) {
    const struct {
        const char* name;
        PaperSize paper;
        QSizeF surface;
        QSizeF expectedPaper;
    } cases[] = {
        {"EASY surface on A4, landscape", PaperSize::A4, {270, 190}, {297, 210}},
        {"EASY surface on A3", PaperSize::A3, {270, 190}, {420, 297}},
        {"tall surface on A4, portrait", PaperSize::A4, {150, 250}, {210, 297}},
        {"paper the sheet's own size", PaperSize::Sheet, {270, 190}, {270, 190}},
    };
    constexpr int kDpi = 50;
    QTemporaryDir dir;
    for (const auto& c : cases) {
        SheetExportOptions options;
        options.paper = c.paper;
        options.outlines = false;
        const QString pdf = dir.filePath(QString::fromUtf8(c.name) + ".pdf");
        QString error;
        ASSERT_TRUE(SheetExport::exportPdf(threePages(c.surface), redCircle(c.surface), options,
                                           pdf, Language::Catalan, &error))
            << c.name << " " << error;
        const PdfInfo info = pdfInfo(pdf);
        EXPECT_EQ(info.pages, 1) << c.name << ": the current page only";
        EXPECT_NEAR(info.sizeMm.width(), c.expectedPaper.width(), 0.5) << c.name;
        EXPECT_NEAR(info.sizeMm.height(), c.expectedPaper.height(), 0.5) << c.name;
        const QImage page = render(pdf, kDpi);
        const QRect red = redExtent(page);
        const double diameter = std::min(c.surface.width(), c.surface.height()) * kDpi / kMmPerInch;
        EXPECT_NEAR(red.width(), diameter, 2) << c.name;
        EXPECT_NEAR(red.height(), diameter, 2) << c.name;
        EXPECT_NEAR(red.left(), page.width() - 1 - red.right(), 2) << c.name << " centred across";
        EXPECT_NEAR(red.top(), page.height() - 1 - red.bottom(), 2) << c.name << " centred down";
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
    EXPECT_EQ(pdfInfo(pdf).pages, 3);
    // The Area's right edge lies at the middle of the surface, its top edge half-way down.
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
        QSizeF surface;
        QString path;
        const char* errorPart;
    } cases[] = {
        {"larger than A4", {300, 220}, dir.filePath("a.pdf"), "no cabe"},
        {"empty surface", {0, 190}, dir.filePath("c.pdf"), "no cabe"},
        {"folder missing", {270, 190}, dir.filePath("no/d.pdf"), "No se ha podido guardar"},
    };
    for (const auto& c : cases) {
        const SheetExportOptions options;
        QString error;
        EXPECT_FALSE(SheetExport::exportPdf(threePages(c.surface), redPicture(), options, c.path,
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
        {"missing", "cap.png", false, true},
    };
    for (const auto& c : cases) {
        t.FitxGraf = c.stored;
        QString error;
        const QImage picture = SheetExport::loadPicture(t, Language::Catalan, &error);
        EXPECT_EQ(!picture.isNull(), c.loads) << c.name;
        EXPECT_EQ(error.startsWith(Message(Language::Catalan, 110)), c.error) << c.name;
    }
}

TEST(SheetExport, ThumbnailHasTheSheetsShapeAndOutlinesTheCurrentPage) {
    QTemporaryDir dir;
    const QString png = dir.filePath("mini.png");
    QString error;
    ASSERT_TRUE(
        SheetExport::saveThumbnail(threePages(), redPicture(), png, Language::Catalan, &error))
        << error;
    const QImage mini(png);
    ASSERT_EQ(mini.size(), QSize(240, 169));
    EXPECT_TRUE(isRed(mini.pixelColor(200, 20))) << "outside the Area";
    EXPECT_TRUE(isOutline(mini.pixelColor(60, 84)) || isOutline(mini.pixelColor(60, 85)))
        << "top edge of the lower-left quarter";
    EXPECT_FALSE(SheetExport::saveThumbnail(threePages(), redPicture(), dir.filePath("x/y.png"),
                                            Language::Catalan, &error));
    EXPECT_TRUE(error.startsWith("No s'ha pogut desar ")) << error;
}

// Chooses `path` in a file dialog, keeping its title.
test::ModalAnswer chooseFile(const QString& path, QString* title) {
    return [path, title](QWidget* modal) {
        auto* files = qobject_cast<QFileDialog*>(modal);
        ASSERT_NE(files, nullptr);
        *title = files->windowTitle();
        test::chooseInFileDialog(files, path);
    };
}

TEST(SheetExport, MenuCommandsAskForOptionsAndFile) {
    QTemporaryDir dir;
    const QString pdf = dir.filePath("full.pdf");
    SheetExportOptions options;
    QStringList captions;
    QString title;
    const test::ModalAnswer chooseOptions = [&captions](QWidget* choice) {
        captions.append(choice->windowTitle());
        for (const QAbstractButton* button : choice->findChildren<QAbstractButton*>())
            captions.append(button->text());
        choice->findChild<QComboBox*>()->setCurrentIndex(1); // A3
        test::buttonNamed(choice, "Aceptar")->click();
    };
    test::answerModals({chooseOptions, chooseFile(pdf, &title)}, [&] {
        EXPECT_TRUE(
            SheetExport::exportWithDialog(nullptr, threePages(), Language::Spanish, &options));
    });
    for (const char* caption : {"Guardar la lámina en PDF", "Página actual", "Todas las páginas",
                                "Contornos y etiquetas de las áreas", "Aceptar", "Cancelar"})
        EXPECT_TRUE(captions.contains(QString::fromUtf8(caption))) << caption;
    EXPECT_EQ(options.paper, PaperSize::A3) << "the choice is kept for next time";
    EXPECT_NEAR(pdfInfo(pdf).sizeMm.width(), 420, 0.5);

    const QString png = dir.filePath("mini.png");
    test::answerModals({chooseFile(png, &title)}, [&] {
        EXPECT_TRUE(SheetExport::saveThumbnailWithDialog(nullptr, threePages(), Language::Catalan));
    });
    EXPECT_EQ(title, "Desar mini-làmina");
    EXPECT_EQ(QImage(png).size(), QSize(240, 169)) << "the sheet's shape";
}

} // namespace
} // namespace mervak
