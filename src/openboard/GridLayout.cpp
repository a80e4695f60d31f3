#include "openboard/GridLayout.h"

#include <QCryptographicHash>
#include <QSet>
#include <algorithm>
#include <cmath>

namespace mervak {

namespace {

int roundedShare(int index, int count) {
    return (index * kBoardSheetUnits + count / 2) / count;
}

int toUnits(double fraction) {
    return static_cast<int>(std::lround(std::clamp(fraction, 0.0, 1.0) * kBoardSheetUnits));
}

struct Span {
    int from = 0;
    int to = 0;
    friend bool operator==(const Span&, const Span&) = default;
};

// The distinct spans in order, or no value when two of them overlap.
std::optional<QList<Span>> orderedSpans(QList<Span> spans) {
    std::sort(spans.begin(), spans.end(), [](const Span& a, const Span& b) {
        return a.from != b.from ? a.from < b.from : a.to < b.to;
    });
    spans.erase(std::unique(spans.begin(), spans.end()), spans.end());
    for (qsizetype i = 1; i < spans.size(); ++i)
        if (spans[i].from < spans[i - 1].to)
            return std::nullopt;
    return spans;
}

} // namespace

SheetBox gridCellBox(int rows, int columns, int row, int column) {
    return {roundedShare(column, columns), kBoardSheetUnits - roundedShare(row + 1, rows),
            roundedShare(column + 1, columns), kBoardSheetUnits - roundedShare(row, rows)};
}

SheetBox positionBox(const BoardPosition& p) {
    return {toUnits(p.left), kBoardSheetUnits - toUnits(p.top + p.height),
            toUnits(p.left + p.width), kBoardSheetUnits - toUnits(p.top)};
}

BoardPosition boxPosition(const SheetBox& box) {
    const double units = kBoardSheetUnits;
    const auto onSheet = [](int value) { return std::clamp(value, 0, kBoardSheetUnits); };
    const SheetBox b{onSheet(box.left), onSheet(box.bottom), onSheet(box.right), onSheet(box.top)};
    return {b.left / units, (kBoardSheetUnits - b.top) / units, (b.right - b.left) / units,
            (b.top - b.bottom) / units};
}

QString layoutMark(const Board& board) {
    QStringList parts;
    if (board.grid) {
        parts.append(QStringLiteral("%1x%2").arg(board.grid->rows).arg(board.grid->columns));
        for (const QStringList& row : board.grid->order)
            parts.append(row.join(u','));
    }
    for (const BoardButton& b : board.buttons) {
        QString part = b.id;
        if (b.position)
            part += QStringLiteral("@%1,%2,%3,%4")
                        .arg(b.position->left, 0, 'f', 4)
                        .arg(b.position->top, 0, 'f', 4)
                        .arg(b.position->width, 0, 'f', 4)
                        .arg(b.position->height, 0, 'f', 4);
        parts.append(part);
    }
    return QString::fromLatin1(
        QCryptographicHash::hash(parts.join(u';').toUtf8(), QCryptographicHash::Sha1).toHex());
}

std::optional<GridPlacement> inferGrid(const QList<SheetBox>& boxes) {
    QList<Span> horizontal;
    QList<Span> vertical; // measured downwards from the top, so that row 0 is the top row
    for (const SheetBox& box : boxes) {
        horizontal.append({box.left, box.right});
        vertical.append({kBoardSheetUnits - box.top, kBoardSheetUnits - box.bottom});
    }
    const auto columns = orderedSpans(horizontal);
    const auto rows = orderedSpans(vertical);
    if (!columns || !rows)
        return std::nullopt;
    GridPlacement placement{static_cast<int>(rows->size()), static_cast<int>(columns->size()), {}};
    QSet<QPair<int, int>> taken;
    for (qsizetype i = 0; i < boxes.size(); ++i) {
        const QPoint cell(static_cast<int>(columns->indexOf(horizontal[i])),
                          static_cast<int>(rows->indexOf(vertical[i])));
        if (taken.contains({cell.x(), cell.y()}))
            return std::nullopt;
        taken.insert({cell.x(), cell.y()});
        placement.cells.append(cell);
    }
    return placement;
}

} // namespace mervak
