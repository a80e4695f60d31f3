#include "editor/GridSplit.h"

#include "platform/Checked16.h"

#include <QList>

namespace mervak {

namespace {

QList<Area> gridCells(const Area& source, int16_t columns, int16_t rows) {
    const int16_t cellW = floorToInt16(static_cast<double>(source.X1 - source.X0) / columns);
    const int16_t cellH = floorToInt16(static_cast<double>(source.Y1 - source.Y0) / rows);
    QList<Area> cells;
    cells.reserve(qsizetype{columns} * rows);
    for (int16_t r = 0; r < rows; ++r) {
        for (int16_t c = 0; c < columns; ++c) {
            Area cell = source;
            cell.Y0 = add16(source.Y0, mul16(r, cellH));
            cell.Y1 = add16(cell.Y0, cellH);
            cell.X0 = add16(source.X0, mul16(c, cellW));
            cell.X1 = add16(cell.X0, cellW);
            cells.append(cell);
        }
    }
    return cells;
}

} // namespace

int16_t gridCount(int16_t maximum, int16_t value) {
    return add16(sub16(maximum, value), 1);
}

SplitResult subdivideSelectedArea(Template& t, int16_t columns, int16_t rows) {
    if (t.SelectedArea < 1 || t.SelectedArea > t.AreaCount())
        return SplitResult::NothingSelected;
    if (columns < 1 || rows < 1)
        return SplitResult::BadGrid;
    toInt16(static_cast<long long>(t.AreaCount()) - 1 + static_cast<long long>(columns) * rows);
    const QList<Area> cells = gridCells(t.area(t.SelectedArea), columns, rows);
    t.DeleteArea(t.SelectedArea);
    t.CurrentArea = t.PageAreaCount;
    for (const Area& cell : cells)
        t.AppendArea(cell);
    return SplitResult::Done;
}

} // namespace mervak
