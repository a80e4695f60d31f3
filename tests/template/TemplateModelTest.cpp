#include "platform/Checked16.h"
#include "support/TestAreas.h"
#include "template/AreaHitTest.h"
#include "template/MvwReader.h"
#include "template/MvwWriter.h"
#include "template/PageModel.h"
#include "template/PageOperations.h"
#include "template/Template.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

Template withPages(std::initializer_list<int16_t> pages) {
    Template t;
    t.PageCount = 3;
    for (int16_t page : pages)
        t.AppendArea(test::makeArea(0, 0, 0, 0, page));
    return t;
}

// Loops over the Areas need a wide index: a 16-bit one never ends at 32767.
TEST(TemplateModel, AFullTemplateOf32767Areas) {
    Template t;
    t.PageCount = 2;
    for (int i = 0; i < Template::kMaxAreas; ++i)
        t.AppendArea(
            test::makeArea(static_cast<int16_t>(i), 0, 0, 0, static_cast<int16_t>(i % 2 + 1)));
    t.CurrentArea = 0;
    t.PageAreaCount = 0;
    EXPECT_THROW(t.AppendArea(Area()), Overflow16);
    EXPECT_EQ(t.AreaCount(), 32767);
    EXPECT_EQ(t.CurrentArea, 0);

    Template back;
    ASSERT_FALSE(readMvw(writeMvw(t), back));
    ASSERT_EQ(back.AreaCount(), 32767);
    EXPECT_EQ(back.area(32767).X0, 32766);
    EXPECT_EQ(back.areasOfPage(1).size(), 16384);

    back.CurrentPage = 1;
    deletePage(back);
    EXPECT_EQ(back.AreaCount(), 16383);
    EXPECT_EQ(back.PageAreaCount, 16383);
    EXPECT_EQ(writePageModel(back, 1).count("\r\n"), 16383 * 8);
}

TEST(TemplateModel, DeleteArea) {
    const struct {
        const char* name;
        int16_t index;
        int16_t selectedBefore;
        int16_t selectedAfter;
        QList<int16_t> pagesAfter;
    } cases[] = {
        {"last record", 3, 0, 0, {1, 2}},
        {"the selected one", 2, 2, 0, {1, 3}},
        {"another than the selected", 1, 3, 3, {2, 3}},
        {"index 0", 0, 0, 0, {1, 2, 3}},
        {"past the end", 4, 0, 0, {1, 2, 3}},
        {"past the end but selected", 7, 7, 0, {1, 2, 3}},
        {"negative", -1, 1, 1, {1, 2, 3}},
    };
    for (const auto& c : cases) {
        Template t = withPages({1, 2, 3});
        t.SelectedArea = c.selectedBefore;
        t.DeleteArea(c.index);
        EXPECT_EQ(t.SelectedArea, c.selectedAfter) << c.name;
        QList<int16_t> pages;
        for (int i = 1; i <= t.AreaCount(); ++i)
            pages.append(t.area(i).Page);
        EXPECT_EQ(pages, c.pagesAfter) << c.name;
        EXPECT_EQ(t.CurrentArea, c.pagesAfter.size()) << c.name;
        EXPECT_EQ(t.PageAreaCount, c.pagesAfter.size()) << c.name;
    }
}

TEST(TemplateModel, NextAndPreviousAreaWalkThePage) {
    // Pages in array order: 2, 1, 2, 3, 2; current page 2 holds indices 1, 3, 5.
    const struct {
        const char* name;
        int16_t currentArea;
        int16_t selected;
        bool next;
        bool answered; // false: beep
        int16_t currentAfter;
        int16_t selectedAfter;
    } cases[] = {
        {"next from the first", 1, 1, true, true, 2, 3},
        {"next from the second", 2, 3, true, true, 3, 5},
        {"next on the last beeps", 3, 5, true, false, 3, 5},
        {"next finds none past the end", 1, 5, true, true, 1, 5},
        {"previous from the last", 3, 5, false, true, 2, 3},
        {"previous from the second", 2, 3, false, true, 1, 1},
        {"previous on the first beeps", 1, 1, false, false, 1, 1},
        {"previous with nothing selected beeps", 0, 0, false, false, 0, 0},
        {"previous finds none before", 2, 1, false, true, 2, 1},
    };
    for (const auto& c : cases) {
        Template t = withPages({2, 1, 2, 3, 2});
        t.CurrentPage = 2;
        t.CurrentArea = c.currentArea;
        t.PageAreaCount = 3;
        t.SelectedArea = c.selected;
        const bool answered = c.next ? t.NextArea() : t.PrevArea();
        EXPECT_EQ(answered, c.answered) << c.name;
        EXPECT_EQ(t.CurrentArea, c.currentAfter) << c.name;
        EXPECT_EQ(t.SelectedArea, c.selectedAfter) << c.name;
    }
}

// The hit test reads boxes the Template keeps beside its Areas: each change must
// reach them, also after a hit test has built them.
TEST(TemplateModel, TheHitTestSeesEveryChange) {
    using test::makeArea;
    const struct {
        const char* name;
        void (*change)(Template&);
        int16_t x, y;
        AreaHit expected;
    } cases[] = {
        {"edges included", [](Template&) {}, 10, 10, {1, 1}},
        {"overlap: the earlier wins", [](Template&) {}, 7, 5, {1, 1}},
        {"other pages skipped", [](Template&) {}, 35, 5, {0, 2}},
        {"corner moved", [](Template& t) { t.area(1).X1 = 3; }, 4, 5, {0, 2}},
        {"corners stored reversed", [](Template& t) { t.area(2).X0 = 40; }, 35, 5, {2, 2}},
        {"moved to another page", [](Template& t) { t.area(1).Page = 2; }, 7, 5, {2, 1}},
        {"appended", [](Template& t) { t.AppendArea(makeArea(0, 20, 9, 29, 1)); }, 5, 25, {4, 3}},
        {"deleted", [](Template& t) { t.DeleteArea(1); }, 7, 5, {1, 1}},
        {"emptied", [](Template& t) { t.NewTemplate(); }, 5, 5, {0, 0}},
        {"current page changed", [](Template& t) { t.CurrentPage = 2; }, 35, 5, {3, 1}},
    };
    for (const auto& c : cases) {
        Template t;
        t.PageCount = 2;
        t.AppendArea(makeArea(0, 0, 10, 10, 1));
        t.AppendArea(makeArea(5, 0, 30, 10, 1));
        t.AppendArea(makeArea(30, 0, 40, 10, 2));
        FindArea(t, 0, 0);
        c.change(t);
        const AreaHit hit = FindArea(t, c.x, c.y);
        EXPECT_EQ(hit.index, c.expected.index) << c.name;
        EXPECT_EQ(hit.ordinal, c.expected.ordinal) << c.name;
    }
}

} // namespace
} // namespace mervak
