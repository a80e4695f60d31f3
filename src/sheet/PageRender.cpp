#include "sheet/PageRender.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <cmath>

namespace mervak {

namespace {

constexpr double kMmPerInch = 25.4;
constexpr int kPdfDpi = 1200;

} // namespace

QSize sheetPixels(const Template& t, double dpi) {
    return {static_cast<int>(std::lround(t.SheetWidthMm * dpi / kMmPerInch)),
            static_cast<int>(std::lround(t.SheetHeightMm * dpi / kMmPerInch))};
}

QImage renderPageImage(const Template& t, int16_t page, QSize size, const PictureFiles& files,
                       const SheetDrawing& drawing) {
    QImage image(size.expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    SheetPainter(t, files).paint(painter, QRectF(QPointF(0, 0), QSizeF(image.size())), page,
                                 drawing);
    return image;
}

QByteArray renderPagesPdf(const Template& t, const QList<int16_t>& pages, const PictureFiles& files,
                          Language language) {
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kPdfDpi);
    writer.setCreator(QStringLiteral("Mervak"));
    const QSizeF sheetMm(t.SheetWidthMm, t.SheetHeightMm);
    writer.setPageSize(QPageSize(sheetMm, QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    QPainter painter;
    if (!painter.begin(&writer))
        return {};
    SheetPainter sheet(t, files);
    const QRectF surface(0, 0, sheetMm.width() * kPdfDpi / kMmPerInch,
                         sheetMm.height() * kPdfDpi / kMmPerInch);
    for (qsizetype i = 0; i < pages.size(); ++i) {
        if (i > 0)
            writer.newPage();
        sheet.paint(painter, surface, pages[i], {true, language});
    }
    if (!painter.end())
        return {};
    return pdf;
}

QImage renderThumbnail(const Template& t, int16_t page, const PictureFiles& files, int longSide) {
    const QSize size = QSizeF(t.SheetWidthMm, t.SheetHeightMm)
                           .scaled(QSizeF(longSide, longSide), Qt::KeepAspectRatio)
                           .toSize();
    return renderPageImage(t, page, size, files);
}

QByteArray pngBytes(const QImage& image) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG"))
        return {};
    return png;
}

} // namespace mervak
