#include "sheet/PlainLabel.h"
#include "sheet/ReadingGrid.h"

#include <array>
#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(PlainLabel, ShowsWhatTheAreaTypesOrSaysWithoutCommandSyntax) {
    const std::pair<const char*, const char*> cases[] = {
        {"{|Llegir gos}gos", "gos"},
        {"gos ", "gos"},
        {"{|Leer el perro}", "el perro"},
        {"{|lleGIR bon dia}{ENTER}", "bon dia"},
        {"cafè{ENTER}", "cafè"},
        {"{+}1{=}", "+1="},
        {"^c{|Pagina 2}hola~", "hola"},
        {"+(ab)c%{F4}", "c"},
        {"{a 3}", "aaa"},
        {"{|Llegir {|RM }}", ""},
        {"{|Pagina 2}", ""},
        {"{|Llegir gos", ""},
    };
    for (const auto& [actionText, label] : cases)
        EXPECT_EQ(plainLabel(QString::fromUtf8(actionText)), QString::fromUtf8(label))
            << actionText;
}

// A teacher reads the numbers: top row first, left to right, margins and gaps
// kept along each side of a 270 x 190 mm sheet.
TEST(ReadingGrid, NumbersCellsInReadingOrder) {
    Template t;
    const QList<Area> grid = readingOrderGrid(t, {2, 3, 10, 5}, 4);
    ASSERT_EQ(grid.size(), 6);
    const struct {
        int index;
        int16_t x0, y0, x1, y1;
    } cases[] = {
        {0, 4, 62, 40, 114}, {2, 80, 62, 116, 114}, {3, 4, 6, 40, 58}, {5, 80, 6, 116, 58}};
    for (const auto& c : cases) {
        const Area& a = grid[c.index];
        EXPECT_EQ((std::array{a.X0, a.Y0, a.X1, a.Y1}), (std::array{c.x0, c.y0, c.x1, c.y1}))
            << c.index;
        EXPECT_EQ(a.Page, 4);
        EXPECT_TRUE(a.Cell.has_value());
    }
    EXPECT_TRUE(readingOrderGrid(t, {2, 200, 10, 5}, 1).isEmpty()) << "cells under one unit";

    t.FitxGraf = QStringLiteral("lamina.png");
    addGridPage(t, {1, 2, 10, 5});
    EXPECT_EQ(t.PageCount, 2);
    EXPECT_EQ(t.CurrentPage, 2);
    EXPECT_EQ(t.countAreasOfPage(2), 2);
    EXPECT_EQ(t.pagePicture(1), QStringLiteral("lamina.png")) << "page 1 looks as it did";
    EXPECT_TRUE(t.pagePicture(2).isEmpty()) << "never page 1's picture";
}

} // namespace
} // namespace mervak
