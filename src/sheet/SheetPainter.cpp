#include "sheet/SheetPainter.h"

#include "sheet/CellLayout.h"
#include "sheet/PlainLabel.h"
#include "sheet/SheetStyle.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <algorithm>

namespace mervak {

namespace {

constexpr double kSheetUnits = 120;
constexpr double kBorderMm = 0.6;
constexpr double kCreditMm = 2.2;
constexpr double kMarkMm = 8;
constexpr double kMarkPenMm = 0.3;

QColor colourOf(uint32_t rgb) {
    return QColor::fromRgb(static_cast<QRgb>(rgb));
}

} // namespace

QString symbolCredit(Language language) {
    return language == Language::Spanish
               ? QStringLiteral("Pictogramas: OpenMoji (openmoji.org), licencia CC BY-SA 4.0")
               : QStringLiteral("Pictogrames: OpenMoji (openmoji.org), llicència CC BY-SA 4.0");
}

SheetPainter::SheetPainter(const Template& t, PictureFiles files)
    : t_(t), files_(std::move(files)) {}

QString SheetPainter::folderOf(const Template& t) {
    return t.isUntitled() ? QDir::currentPath() : QFileInfo(t.TemplateFileName).absolutePath();
}

QRectF SheetPainter::areaBox(const Area& area, const QRectF& sheet) {
    const auto [left, right] = std::minmax(area.X0, area.X1);
    const auto [bottom, top] = std::minmax(area.Y0, area.Y1);
    const double sx = sheet.width() / kSheetUnits;
    const double sy = sheet.height() / kSheetUnits;
    return {sheet.left() + left * sx, sheet.bottom() - top * sy, (right - left) * sx,
            (top - bottom) * sy};
}

QString SheetPainter::cellLabel(const Area& area) {
    if (!area.Cell)
        return {};
    return area.Cell->Label.isEmpty() ? plainLabel(area.ActionText) : area.Cell->Label;
}

QString SheetPainter::backgroundFile(int16_t page) const {
    return files_.find(t_.isComposed() ? t_.pagePicture(page) : t_.FitxGraf);
}

bool SheetPainter::usesSymbols(int16_t page) const {
    const QList<int16_t> indices = t_.areasOfPage(page);
    return std::any_of(indices.cbegin(), indices.cend(), [this](int16_t i) {
        const auto& cell = t_.area(i).Cell;
        return cell && cell->Placement != LabelPlacement::Alone && isSymbolReference(cell->Picture);
    });
}

void SheetPainter::paint(QPainter& painter, const QRectF& sheet, int16_t page,
                         const SheetDrawing& drawing) {
    const double dotsPerMm = sheet.width() / std::max<int16_t>(t_.SheetWidthMm, 1);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.fillRect(sheet, Qt::white);
    pictures_.draw(painter, backgroundFile(page), sheet);
    for (const int16_t index : t_.areasOfPage(page))
        if (t_.area(index).Cell)
            paintCell(painter, t_.area(index), sheet, dotsPerMm);
    if (usesSymbols(page))
        paintCredit(painter, sheet, dotsPerMm, drawing.language);
    if (drawing.cornerMarks)
        paintCornerMarks(painter, sheet, dotsPerMm);
    painter.restore();
}

void SheetPainter::paintCell(QPainter& painter, const Area& area, const QRectF& sheet,
                             double dotsPerMm) {
    const AreaCell& cell = *area.Cell;
    const QRectF box = areaBox(area, sheet);
    if (cell.Background)
        painter.fillRect(box, colourOf(*cell.Background));
    const QString picture =
        cell.Placement == LabelPlacement::Alone ? QString() : files_.find(cell.Picture);
    const CellLayout layout =
        layoutCell(box, cell.Placement, cellLabel(area), pictures_.size(picture), dotsPerMm);
    pictures_.draw(painter, picture, layout.picture);
    paintLabel(painter, layout);
    if (cell.Border) {
        const double width = kBorderMm * dotsPerMm;
        painter.setPen(
            QPen(colourOf(*cell.Border), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(box.adjusted(width / 2, width / 2, -width / 2, -width / 2));
    }
}

// Text stays text (a PDF keeps it searchable and sharp): the reference font
// drawn through a scale.
void SheetPainter::paintLabel(QPainter& painter, const CellLayout& layout) {
    if (layout.lines.isEmpty() || layout.labelScale <= 0)
        return;
    painter.save();
    painter.setFont(labelReferenceFont());
    painter.setPen(Qt::black);
    painter.translate(layout.label.topLeft());
    painter.scale(layout.labelScale, layout.labelScale);
    const QRectF room(QPointF(0, 0), layout.label.size() / layout.labelScale);
    painter.drawText(room, Qt::AlignCenter, layout.lines.join(u'\n'));
    painter.restore();
}

void SheetPainter::paintCredit(QPainter& painter, const QRectF& sheet, double dotsPerMm,
                               Language language) {
    const double height = kCreditMm * dotsPerMm;
    const double scale = height / labelReferenceFont().pixelSize();
    const QString text = symbolCredit(language);
    painter.save();
    painter.setFont(labelReferenceFont());
    const double width = painter.fontMetrics().horizontalAdvance(text) * scale;
    const QRectF band(sheet.right() - width - dotsPerMm * 1.5,
                      sheet.bottom() - height * 1.3 - dotsPerMm, width, height * 1.3);
    painter.fillRect(band.adjusted(-dotsPerMm / 2, 0, dotsPerMm / 2, 0),
                     QColor(255, 255, 255, 200));
    painter.setPen(QColor(90, 90, 90));
    painter.translate(band.topLeft());
    painter.scale(scale, scale);
    painter.drawText(QRectF(QPointF(0, 0), band.size() / scale), Qt::AlignCenter, text);
    painter.restore();
}

void SheetPainter::paintCornerMarks(QPainter& painter, const QRectF& sheet, double dotsPerMm) {
    const double length = kMarkMm * dotsPerMm;
    const double half = kMarkPenMm * dotsPerMm / 2;
    painter.save();
    painter.setPen(QPen(Qt::black, kMarkPenMm * dotsPerMm, Qt::SolidLine, Qt::FlatCap));
    const QRectF inner = sheet.adjusted(half, half, -half, -half);
    const QPointF corners[] = {inner.topLeft(), inner.topRight(), inner.bottomRight(),
                               inner.bottomLeft()};
    for (const QPointF& corner : corners) {
        const double dx = corner.x() < inner.center().x() ? length : -length;
        const double dy = corner.y() < inner.center().y() ? length : -length;
        painter.drawLine(corner, corner + QPointF(dx, 0));
        painter.drawLine(corner, corner + QPointF(0, dy));
    }
    painter.restore();
}

} // namespace mervak
