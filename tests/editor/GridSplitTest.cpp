#include "editor/GridSplit.h"

#include "platform/Checked16.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

struct Rect {
    int16_t x0, y0, x1, y1;
    friend bool operator==(const Rect&, const Rect&) = default;
};

Template withSource(Rect r) {
    Template t;
    Area other;
    other.Page = 1;
    t.AppendArea(other);
    Area source;
    source.X0 = r.x0;
    source.Y0 = r.y0;
    source.X1 = r.x1;
    source.Y1 = r.y1;
    source.Page = 2;
    source.ClipFlag = 1;
    source.Clip = QStringLiteral("c.bmp");
    source.Flags = -1;
    source.ActionText = QStringLiteral("{|Sona a.WAV}x");
    t.AppendArea(source);
    t.AppendArea(other);
    t.SelectedArea = 2;
    t.CurrentPage = 2;
    t.CurrentArea = 1;
    t.PageAreaCount = 1;
    return t;
}

QList<Rect> rectsFrom(const Template& t, int16_t first) {
    QList<Rect> rects;
    for (int16_t i = first; i <= t.AreaCount(); ++i)
        rects.append({t.area(i).X0, t.area(i).Y0, t.area(i).X1, t.area(i).Y1});
    return rects;
}

TEST(GridSplit, CountsFromTheScrollBars) {
    EXPECT_EQ(gridCount(10, 10), 1);
    EXPECT_EQ(gridCount(10, 8), 3);
    EXPECT_EQ(gridCount(10, 0), 11);
}

TEST(GridSplit, CellsTruncateAndGoRowByRow) {
    const struct {
        const char* name;
        Rect source;
        int16_t columns, rows;
        QList<Rect> cells;
    } cases[] = {
        {"one by one moves the Area to the end", {5, 6, 50, 60}, 1, 1, {{5, 6, 50, 60}}},
        {"100 wide in three columns",
         {10, 0, 110, 30},
         3,
         1,
         {{10, 0, 43, 30}, {43, 0, 76, 30}, {76, 0, 109, 30}}},
        {"two by two, row by row",
         {0, 0, 10, 21},
         2,
         2,
         {{0, 0, 5, 10}, {5, 0, 10, 10}, {0, 10, 5, 20}, {5, 10, 10, 20}}},
        {"cells narrower than a unit",
         {0, 0, 2, 2},
         3,
         1,
         {{0, 0, 0, 2}, {0, 0, 0, 2}, {0, 0, 0, 2}}},
        {"reversed rectangle rounds down",
         {10, 0, 0, 1},
         3,
         1,
         {{10, 0, 6, 1}, {6, 0, 2, 1}, {2, 0, -2, 1}}},
    };
    // Every cell is the source Area but for its rectangle.
    const auto withoutRect = [](Area a) {
        a.X0 = a.Y0 = a.X1 = a.Y1 = 0;
        return a;
    };
    for (const auto& c : cases) {
        Template t = withSource(c.source);
        const Area source = t.area(2);
        ASSERT_EQ(subdivideSelectedArea(t, c.columns, c.rows), SplitResult::Done) << c.name;
        EXPECT_EQ(rectsFrom(t, 3), c.cells) << c.name;
        EXPECT_EQ(t.SelectedArea, 0) << c.name;
        EXPECT_EQ(t.CurrentArea, c.cells.size()) << c.name;
        for (int16_t i = 3; i <= t.AreaCount(); ++i)
            EXPECT_EQ(withoutRect(t.area(i)), withoutRect(source)) << c.name << " cell " << i;
    }
}

TEST(GridSplit, RefusesWithoutSelectionOrGrid) {
    Template t = withSource({0, 0, 10, 10});
    t.SelectedArea = 0;
    EXPECT_EQ(subdivideSelectedArea(t, 2, 2), SplitResult::NothingSelected);
    t.SelectedArea = 4;
    EXPECT_EQ(subdivideSelectedArea(t, 2, 2), SplitResult::NothingSelected);
    t.SelectedArea = 2;
    EXPECT_EQ(subdivideSelectedArea(t, 0, 2), SplitResult::BadGrid);
    EXPECT_EQ(t.AreaCount(), 3);
}

TEST(GridSplit, OverflowChangesNothing) {
    Template wide = withSource({-32768, 0, 32767, 10}); // cells past 16 bits
    EXPECT_THROW(subdivideSelectedArea(wide, 1, 1), Overflow16);
    Template many = withSource({0, 0, 30000, 30000}); // more Areas than a Template holds
    EXPECT_THROW(subdivideSelectedArea(many, 200, 200), Overflow16);
    for (const Template& t : {wide, many}) {
        EXPECT_EQ(t.AreaCount(), 3);
        EXPECT_EQ(t.SelectedArea, 2);
    }
}

} // namespace
} // namespace mervak
