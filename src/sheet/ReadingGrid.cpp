#include "sheet/ReadingGrid.h"

#include "platform/Checked16.h"
#include "sheet/Composition.h"
#include "sheet/SheetStyle.h"
#include "template/PageOperations.h"

#include <cmath>

namespace mervak {

namespace {

constexpr double kSheetUnits = 120;

// Where each of `count` cells starts and ends along one side of `sideMm`.
QList<std::pair<int16_t, int16_t>> spans(int count, double sideMm, double marginMm, double gapMm) {
    const double unitsPerMm = kSheetUnits / sideMm;
    const double margin = marginMm * unitsPerMm;
    const double gap = gapMm * unitsPerMm;
    const double cell = (kSheetUnits - 2 * margin - (count - 1) * gap) / count;
    QList<std::pair<int16_t, int16_t>> result;
    if (count < 1 || cell < 1)
        return result;
    for (int i = 0; i < count; ++i) {
        const double start = margin + i * (cell + gap);
        result.append({static_cast<int16_t>(std::lround(start)),
                       static_cast<int16_t>(std::lround(start + cell))});
    }
    return result;
}

} // namespace

QList<Area> readingOrderGrid(const Template& t, const GridSpec& spec, int16_t page) {
    const auto columns = spans(spec.columns, t.SheetWidthMm, spec.marginMm, spec.gapMm);
    const auto rows = spans(spec.rows, t.SheetHeightMm, spec.marginMm, spec.gapMm);
    QList<Area> areas;
    // Rows counted from the top of the sheet, where y is largest.
    for (const auto& [fromTop, toTop] : rows) {
        for (const auto& [left, right] : columns) {
            Area a;
            a.X0 = left;
            a.X1 = right;
            a.Y0 = static_cast<int16_t>(kSheetUnits - toTop);
            a.Y1 = static_cast<int16_t>(kSheetUnits - fromTop);
            a.Page = page;
            a.Cell = AreaCell{};
            a.Cell->Border = kDefaultBorder;
            areas.append(a);
        }
    }
    return areas;
}

namespace {

void appendAreas(Template& t, const QList<Area>& areas) {
    t.reserveAreas(areas.size());
    for (const Area& a : areas)
        t.AppendArea(a);
    t.CurrentArea = 0;
    t.Modified = true;
}

} // namespace

void appendGrid(Template& t, const GridSpec& spec) {
    const QList<Area> areas = readingOrderGrid(t, spec, t.CurrentPage);
    toInt16(t.AreaCount() + areas.size());
    t.beginComposing();
    appendAreas(t, areas);
}

void addGridPage(Template& t, const GridSpec& spec) {
    add16(t.PageCount, 1);
    const QList<Area> areas = readingOrderGrid(t, spec, static_cast<int16_t>(t.CurrentPage + 1));
    toInt16(t.AreaCount() + areas.size());
    t.beginComposing();
    insertPage(t, PlacingCode::After);
    appendAreas(t, areas);
}

} // namespace mervak
