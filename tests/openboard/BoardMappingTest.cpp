#include "openboard/ActionMapping.h"
#include "openboard/BoardColour.h"
#include "openboard/GridLayout.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(ActionMapping, WhatAnActionTextTypesSaysAndLinks) {
    const std::pair<const char*, ButtonAction> cases[] = {
        {"hola {|Llegir hola}", {"hola", "hola", {}}},
        {"{|LEER bon dia}{|Pagina 3}{|Pagina 4}", {"", "bon dia", 3}},
        {"a{+}b{ENTER}^c%{F4}~x", {"a+bx", "", {}}},
        {"{|Sona a.WAV}{|Pagina x}{|Llegir a}{|Llegir b}", {"", "a b", {}}},
        {"{|M+ {|RM }}z", {"z", "", {}}},
        {"{|Llegir obert", {"", "obert", {}}},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(buttonActionOf(QString::fromUtf8(text)), expected) << text;
}

// Typed text survives the notation; spoken text loses only what would break its block.
TEST(ActionMapping, ActionTextsReadBackAsWritten) {
    const ButtonAction cases[] = {
        {"1+1=2 (sí) ~ {ok} [x] 50% ^", "", {}},
        {"", "té {claus} | i punts.", 2},
    };
    const ButtonAction read[] = {
        {"1+1=2 (sí) ~ {ok} [x] 50% ^", "", {}},
        {"", "té claus i punts.", 2},
    };
    for (size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(buttonActionOf(actionTextOf(cases[i])), read[i]) << i;
}

TEST(BoardColour, NotationsOnWhitePaper) {
    const std::tuple<const char*, std::optional<uint32_t>, bool> cases[] = {
        {"rgb(255, 128, 0)", 0xFF8000, true},   {"RGBA(0,0,255,0.2)", 0xCCCCFF, true},
        {"rgb(100%, 0%, 50%)", 0xFF0080, true}, {"#0f0", 0x00FF00, true},
        {" #123456 ", 0x123456, true},          {"white", 0xFFFFFF, true},
        {"transparent", std::nullopt, true},    {"", std::nullopt, true},
        {"rgb(1, 2)", std::nullopt, false},     {"sparkly", std::nullopt, false},
    };
    for (const auto& [text, rgb, understood] : cases) {
        bool understoodNow = false;
        EXPECT_EQ(parseBoardColour(QString::fromUtf8(text), &understoodNow), rgb) << text;
        EXPECT_EQ(understoodNow, understood) << text;
    }
    EXPECT_EQ(boardColourText(0xFF8000), "rgb(255, 128, 0)");
}

TEST(GridLayout, BoxesThatFormAGrid) {
    using Cells = QList<QPoint>;
    const std::tuple<QList<SheetBox>, std::optional<Cells>> cases[] = {
        // Three columns with gaps, two rows, a hole: cells by column and row.
        {{{5, 65, 35, 115}, {85, 65, 115, 115}, {45, 5, 75, 55}}, Cells{{0, 0}, {2, 0}, {1, 1}}},
        {{{0, 0, 60, 120}, {60, 0, 120, 120}}, Cells{{0, 0}, {1, 0}}},
        {{{0, 0, 60, 60}, {30, 0, 90, 60}}, std::nullopt}, // overlapping columns
        {{{0, 0, 60, 60}, {0, 0, 60, 60}}, std::nullopt},  // two boxes in one cell
    };
    for (const auto& [boxes, cells] : cases) {
        const auto grid = inferGrid(boxes);
        ASSERT_EQ(grid.has_value(), cells.has_value());
        if (grid) {
            EXPECT_EQ(grid->cells, *cells);
        }
    }
    EXPECT_EQ(gridCellBox(3, 7, 2, 6), (SheetBox{103, 0, 120, 40}));
    EXPECT_EQ(positionBox({0.25, 0.5, 0.5, 2.0}), (SheetBox{30, 0, 90, 60}));
}

} // namespace
} // namespace mervak
