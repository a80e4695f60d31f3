#include "sheet/WordSheet.h"

#include "template/AreaCell.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(WordSheetTest, SplitsAListAsTyped) {
    const std::pair<const char*, QStringList> cases[] = {
        {"gos gat  vaca\n", {"gos", "gat", "vaca"}},
        {"cara de gos, gat;vaca", {"cara de gos", "gat", "vaca"}},
        {"gos\n\n  gat \n", {"gos", "gat"}},
        {"cara de gos,\n gos  petit\n", {"cara de gos", "gos petit"}},
        {"  ", {}},
    };
    for (const auto& [text, words] : cases)
        EXPECT_EQ(splitWordList(QString::fromUtf8(text)), words) << text;
}

// Reading order: along the top row from the left, then down; margins and gaps kept.
TEST(WordSheetTest, GridRunsInReadingOrderInsideTheMargins) {
    WordSheetLayout layout;
    layout.rows = 2;
    layout.columns = 3;
    layout.marginMm = 9; // 4 units across a 270 mm sheet, about 5.7 down its 190 mm
    const WordSheetGrid grid = wordSheetGrid(layout, QSizeF(270, 190));
    ASSERT_EQ(grid.cells.size(), 6);
    EXPECT_FALSE(grid.previous);
    EXPECT_EQ(grid.cells[0].left, 4);
    EXPECT_EQ(grid.cells[0].top, 114);
    EXPECT_EQ(grid.cells[2].right, 116);
    EXPECT_EQ(grid.cells[5].bottom, 6);
    for (int i = 1; i < 6; ++i) {
        const UnitBox& before = grid.cells[i - 1];
        const UnitBox& cell = grid.cells[i];
        if (i % 3 == 0)
            EXPECT_LT(cell.top, before.bottom) << i; // the next row, below with a gap
        else
            EXPECT_GT(cell.left, before.right) << i; // the same row, right with a gap
    }
    layout.navigation = true;
    const WordSheetGrid withStrip = wordSheetGrid(layout, QSizeF(270, 190));
    ASSERT_TRUE(withStrip.previous && withStrip.next);
    EXPECT_LT(withStrip.previous->top, withStrip.cells[5].bottom);
    EXPECT_EQ(withStrip.previous->left, 4);
    EXPECT_EQ(withStrip.next->right, 116);
    EXPECT_TRUE(wordSheetGrid({2, 0, 5, 4, false}, QSizeF(270, 190)).cells.isEmpty());
}

TEST(WordSheetTest, AddsAPagePerScreenfulWithStripAndWords) {
    Template t;
    const QStringList words = {"gos", "gat", "vaca", "cavall", "ovella", "porc", "ànec"};
    const auto pictureFor = [](const QString& word) {
        return word == u"ànec" ? QString() : symbolReference(word.toUpper());
    };
    WordSheetLayout layout;
    layout.navigation = true;
    EXPECT_EQ(appendWordSheet(t, words, layout, pictureFor, true, Language::Catalan), 1);
    EXPECT_EQ(t.PageCount, 2);
    ASSERT_EQ(t.countAreasOfPage(1), 8);
    ASSERT_EQ(t.countAreasOfPage(2), 3);
    const Area& first = t.area(t.areasOfPage(1)[0]);
    EXPECT_EQ(first.ActionText, QStringLiteral("gos {|Llegir gos}"));
    EXPECT_EQ(first.Cell->Picture, QStringLiteral("symbol:GOS"));
    EXPECT_EQ(first.Cell->Label, QStringLiteral("gos"));
    const Area& lone = t.area(t.areasOfPage(2)[0]);
    EXPECT_EQ(lone.Cell->Label, QStringLiteral("ànec"));
    EXPECT_EQ(lone.Cell->Picture, QString());
    // The strip turns the pages and goes round at either end.
    const std::tuple<int16_t, int, const char*> strip[] = {
        {1, 6, "{|Pagina 2}"}, {1, 7, "{|Pagina 2}"}, {2, 1, "{|Pagina 1}"}, {2, 2, "{|Pagina 1}"}};
    for (const auto& [page, ordinal, text] : strip)
        EXPECT_EQ(t.area(t.areasOfPage(page)[ordinal]).ActionText, QLatin1String(text));
    EXPECT_EQ(t.area(t.areasOfPage(1)[6]).Cell->Label, QStringLiteral("Anterior"));

    // Sound off: the cells only type; a Template with Areas gets pages of its own.
    layout.navigation = false;
    EXPECT_EQ(appendWordSheet(t, {"(sol)"}, layout, {}, false, Language::Spanish), 3);
    EXPECT_EQ(t.area(t.areasOfPage(3)[0]).ActionText, QStringLiteral("{(}sol{)} "));
}

} // namespace
} // namespace mervak
