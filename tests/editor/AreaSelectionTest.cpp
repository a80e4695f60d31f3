#include "editor/AreaSelection.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

Template twoPages() {
    Template t;
    t.PageCount = 2;
    for (int16_t page : {1, 2, 1, 1, 2}) {
        Area a;
        a.Page = page;
        t.AppendArea(a);
    }
    t.CurrentPage = 1;
    t.CurrentArea = 2;
    t.PageAreaCount = 3;
    return t;
}

TEST(AreaSelection, SelectingByIndex) {
    const struct {
        const char* name;
        int index;
        const char* area;
        const char* page;
        int16_t selected;
        int16_t current;
        int16_t pageAreas;
    } cases[] = {
        {"index 0 blanks the area counter", 0, "----- àrees", "1/2 pàgines", 0, 0, 0},
        {"negative index", -3, "----- àrees", "1/2 pàgines", 0, 0, 0},
        {"past the end", 6, "----- àrees", "1/2 pàgines", 0, 0, 0},
        {"far past 16 bits", 70000, "----- àrees", "1/2 pàgines", 0, 0, 0},
        {"the last Area", 5, "2/3 àrees", "1/2 pàgines", 5, 2, 3},
    };
    for (const auto& c : cases) {
        Template t = twoPages();
        t.SelectedArea = 1;
        const CounterTexts texts = SelectArea(t, c.index);
        EXPECT_EQ(texts.MsgArea, QString::fromUtf8(c.area)) << c.name;
        EXPECT_EQ(texts.MsgPagina, QString::fromUtf8(c.page)) << c.name;
        EXPECT_EQ(t.SelectedArea, c.selected) << c.name;
        EXPECT_EQ(t.CurrentArea, c.current) << c.name;
        EXPECT_EQ(t.PageAreaCount, c.pageAreas) << c.name;
    }
}

} // namespace
} // namespace mervak
