#include "scanning/ScanLayout.h"

#include "template/AreaHitTest.h"

#include <algorithm>
#include <optional>

namespace mervak {

namespace {

constexpr int kSamples = 5;

struct Placed {
    int16_t area;
    AreaBox box;
    int middleY() const { return (box.bottom + box.top) / 2; }
};

// The middle first, then a grid over the Area: the first point the hit test
// gives to this Area.
std::optional<ScanItem> pressPoint(const Template& t, const Placed& placed) {
    const AreaBox& box = placed.box;
    const auto hits = [&](int x, int y) {
        return FindArea(t, static_cast<int16_t>(x), static_cast<int16_t>(y)).index == placed.area;
    };
    const int midX = (box.left + box.right) / 2;
    if (hits(midX, placed.middleY()))
        return ScanItem{placed.area, static_cast<int16_t>(midX),
                        static_cast<int16_t>(placed.middleY())};
    for (int i = 0; i <= kSamples; ++i)
        for (int j = 0; j <= kSamples; ++j) {
            const int x = box.left + (box.right - box.left) * i / kSamples;
            const int y = box.bottom + (box.top - box.bottom) * j / kSamples;
            if (hits(x, y))
                return ScanItem{placed.area, static_cast<int16_t>(x), static_cast<int16_t>(y)};
        }
    return std::nullopt;
}

bool joins(const QList<Placed>& row, const Placed& candidate) {
    return std::all_of(row.begin(), row.end(), [&](const Placed& member) {
        return member.box.bottom <= candidate.middleY() && candidate.middleY() <= member.box.top;
    });
}

} // namespace

QList<ScanRow> scanRows(const Template& t) {
    QList<Placed> placed;
    for (const int16_t index : t.areasOfPage(t.CurrentPage)) {
        const Area& area = t.area(index);
        if (!area.ActionText.isEmpty() || !area.Clip.isEmpty())
            placed.append({index, t.areaBoxes()[index - 1]});
    }
    std::stable_sort(placed.begin(), placed.end(), [](const Placed& a, const Placed& b) {
        return a.box.top != b.box.top ? a.box.top > b.box.top : a.box.left < b.box.left;
    });
    QList<QList<Placed>> grouped;
    for (const Placed& area : placed) {
        if (grouped.isEmpty() || !joins(grouped.last(), area))
            grouped.append(QList<Placed>());
        grouped.last().append(area);
    }
    QList<ScanRow> rows;
    for (QList<Placed>& group : grouped) {
        std::stable_sort(group.begin(), group.end(),
                         [](const Placed& a, const Placed& b) { return a.box.left < b.box.left; });
        ScanRow row;
        for (const Placed& area : group)
            if (const auto item = pressPoint(t, area))
                row.append(*item);
        if (!row.isEmpty())
            rows.append(row);
    }
    return rows;
}

} // namespace mervak
