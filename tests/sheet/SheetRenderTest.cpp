#include "sheet/Composition.h"
#include "sheet/PageRender.h"
#include "sheet/ReadingGrid.h"
#include "support/TestAreas.h"
#include "support/TestFiles.h"
#include "template/MvwReader.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::dataPath;

bool isRed(QRgb p) {
    return qRed(p) > 200 && qGreen(p) < 60 && qBlue(p) < 60;
}

bool isInk(QRgb p) {
    return qRed(p) < 90 && qGreen(p) < 90 && qBlue(p) < 90;
}

// The smallest rectangle holding every pixel of `within` that matches.
QRect pixelsWhere(const QImage& image, const QRect& within, bool (*matches)(QRgb)) {
    QRect found;
    for (int y = within.top(); y <= within.bottom(); ++y)
        for (int x = within.left(); x <= within.right(); ++x)
            if (matches(image.pixel(x, y)))
                found |= QRect(x, y, 1, 1);
    return found;
}

// The text tesseract reads in one line of the image, in Catalan, the line
// scaled to the height it reads best.
QString readText(const QImage& image, const QRect& part, const QString& folder) {
    const QString path = QDir(folder).filePath(QStringLiteral("ocr.png"));
    const QImage line = image.copy(part.adjusted(-8, -8, 8, 8));
    line.scaledToHeight(std::max(1, 60 * line.height() / std::max(1, part.height())),
                        Qt::SmoothTransformation)
        .save(path);
    QProcess tesseract;
    tesseract.start(QStringLiteral("tesseract"),
                    {path, QStringLiteral("-"), QStringLiteral("-l"), QStringLiteral("cat"),
                     QStringLiteral("--psm"), QStringLiteral("7")});
    tesseract.waitForFinished(20000);
    return QString::fromUtf8(tesseract.readAllStandardOutput()).simplified();
}

QString solidPicture(const QString& folder, const QString& name, QColor colour) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(colour);
    const QString path = QDir(folder).filePath(name);
    image.save(path);
    return path;
}

class SheetRender : public ::testing::Test {
protected:
    QTemporaryDir dir;
    PictureFiles files{dir.path(), [](const QString& hexcode) {
                           return hexcode == QLatin1String("1F415")
                                      ? dataPath(QStringLiteral("sheet/red-circle.svg"))
                                      : QString();
                       }};
};

// Each cell keeps its picture and label inside its Area, the label where its
// placement puts it and readable; a page with a library symbol carries the credit.
TEST_F(SheetRender, CellsStayInsideTheirAreas) {
    const QString red = solidPicture(dir.path(), QStringLiteral("vermell.png"), Qt::red);
    const struct {
        QString picture;
        QString label;
        LabelPlacement placement;
        bool picturePrinted;
    } cases[] = {
        {QStringLiteral("symbol:1F415"), QStringLiteral("gos"), LabelPlacement::Below, true},
        {red, QStringLiteral("gat"), LabelPlacement::Above, true},
        {red, QStringLiteral("vaca"), LabelPlacement::Alone, false},
        {red, QStringLiteral("porc"), LabelPlacement::None, true},
    };
    Template t;
    t.TemplateFileName = QDir(dir.path()).filePath(QStringLiteral("animals.mvw"));
    for (Area a : readingOrderGrid(t, {2, 2, 10, 5}, 1)) {
        const auto& c = cases[t.AreaCount()];
        a.Cell->Picture = c.picture;
        a.Cell->Label = c.label;
        a.Cell->Placement = c.placement;
        t.AppendArea(a);
    }
    const QImage page = renderPageImage(t, 1, sheetPixels(t, 200), files);
    const QRectF sheet(QPointF(0, 0), QSizeF(page.size()));
    for (int i = 1; i <= t.AreaCount(); ++i) {
        const auto& c = cases[i - 1];
        const QRect box = SheetPainter::areaBox(t.area(i), sheet).toAlignedRect();
        const QRect inside = box.adjusted(8, 8, -8, -8); // the border left out
        // Half the gap around the box: no neighbour's picture reaches there.
        const QRect picture = pixelsWhere(page, box.adjusted(-15, -15, 15, 15), isRed);
        const QRect ink = pixelsWhere(page, inside, isInk);
        EXPECT_EQ(!picture.isEmpty(), c.picturePrinted) << c.label.toStdString();
        EXPECT_TRUE(picture.isEmpty() || box.contains(picture)) << c.label.toStdString();
        if (c.placement == LabelPlacement::None) {
            EXPECT_TRUE(ink.isEmpty()) << c.label.toStdString();
            continue;
        }
        // Andika draws "v" and "V" alike.
        EXPECT_EQ(readText(page, ink, dir.path()).toLower(), c.label);
        if (c.placement == LabelPlacement::Below) {
            EXPECT_GT(ink.top(), picture.bottom()) << c.label.toStdString();
        } else if (c.placement == LabelPlacement::Above) {
            EXPECT_LT(ink.bottom(), picture.top()) << c.label.toStdString();
        }
    }
    const QRect credit(page.width() * 2 / 3, page.height() - page.height() / 25, page.width() / 3,
                       page.height() / 25);
    const QRect creditInk = pixelsWhere(page, credit, [](QRgb p) { return qGray(p) < 160; });
    EXPECT_TRUE(readText(page, creditInk, dir.path()).contains(QStringLiteral("OpenMoji")));
}

// How much two images of one size differ, 0..255 per channel on average.
double meanDifference(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) +
                   std::abs(qBlue(p) - qBlue(q));
        }
    return sum / (3.0 * a.width() * a.height());
}

QRgb centre(const QImage& image) {
    return image.pixel(image.width() / 2, image.height() / 2);
}

// A composed page shows its own picture; an older Template shows FitxGraf under
// every page, as it always did.
TEST_F(SheetRender, EachPageShowsItsOwnPicture) {
    const QString blue = solidPicture(dir.path(), QStringLiteral("blau.png"), Qt::blue);
    const QString green = solidPicture(dir.path(), QStringLiteral("verd.png"), Qt::green);
    Template older;
    older.PageCount = 2;
    older.FitxGraf = QStringLiteral("blau.png");
    Template begun = older;
    begun.beginComposing();
    Template composed = older;
    composed.setPagePicture(2, QStringLiteral("verd.png"));
    const struct {
        const Template* t;
        int16_t page;
        QRgb colour;
    } cases[] = {{&older, 1, qRgb(0, 0, 255)},
                 {&older, 2, qRgb(0, 0, 255)},
                 {&begun, 2, qRgb(0, 0, 255)},
                 {&composed, 1, qRgb(255, 255, 255)},
                 {&composed, 2, qRgb(0, 255, 0)}};
    for (const auto& c : cases) {
        const QImage page = renderPageImage(*c.t, c.page, {60, 40}, files);
        EXPECT_EQ(centre(page), c.colour) << c.page;
    }
    EXPECT_GT(meanDifference(renderPageImage(composed, 1, {60, 40}, files),
                             renderPageImage(composed, 2, {60, 40}, files)),
              50);
}

// Saving writes each composed page beside the Template; a reader that stops
// after the last Area record finds page 1 through FitxGraf.
TEST_F(SheetRender, OlderReadersSeeTheFirstPageThroughFitxGraf) {
    Template t;
    t.PageCount = 2;
    for (Area a : readingOrderGrid(t, {1, 2, 10, 5}, 1)) {
        a.ActionText =
            t.AreaCount() == 0 ? QStringLiteral("{|Llegir gos}gos ") : QStringLiteral("gat ");
        a.Cell->Background = 0xFFEB3BU;
        t.AppendArea(a);
    }
    t.AppendArea(test::makeArea(10, 10, 50, 50, 2, QStringLiteral("vaca")));
    t.area(3).Cell = AreaCell{};
    const QString path = QDir(dir.path()).filePath(QStringLiteral("animals.mvw"));
    ASSERT_FALSE(saveWithPageImages(t, path, false, files.symbolFile).error);
    EXPECT_EQ(t.FitxGraf, QStringLiteral("animals-lamina1.png"));
    EXPECT_TRUE(
        QFileInfo::exists(QDir(dir.path()).filePath(QStringLiteral("animals-lamina2.png"))));

    const QByteArray bytes = test::readAll(path);
    Template older;
    ASSERT_FALSE(readMvw(bytes.left(bytes.indexOf("\"Cella\"")), older));
    older.TemplateFileName = path;
    ASSERT_FALSE(older.isComposed());
    const QSize size = sheetPixels(t, 50);
    const QImage composed = renderPageImage(t, 1, size, files);
    EXPECT_LT(meanDifference(renderPageImage(older, 1, size, files), composed), 3);
    EXPECT_GT(meanDifference(renderPageImage(t, 2, size, files), composed), 10);
}

} // namespace
} // namespace mervak
