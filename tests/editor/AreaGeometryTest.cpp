#include "editor/AreaGeometry.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(AreaGeometry, RectOfPutsStoredCornersInOrder) {
    Area a;
    a.X0 = 50;
    a.Y0 = 90;
    a.X1 = 10;
    a.Y1 = 20;
    EXPECT_EQ(rectOf(a), (SheetRect{10, 20, 50, 90}));
}

TEST(AreaGeometry, GripsAtEdgesCornersAndBody) {
    const SheetRect r{20, 20, 60, 80};
    const struct {
        const char* name;
        QPointF point;
        Grip grip;
    } cases[] = {
        {"inside", {40, 50}, Grip::Body},
        {"left edge", {21, 50}, Grip::Left},
        {"right edge, just outside", {61.5, 50}, Grip::Right},
        {"bottom edge", {40, 19}, Grip::Bottom},
        {"top edge", {40, 80}, Grip::Top},
        {"lower-left corner", {20, 20}, Grip::BottomLeft},
        {"upper-right corner", {60, 80}, Grip::TopRight},
        {"upper-left corner", {19, 81}, Grip::TopLeft},
        {"lower-right corner", {61, 21}, Grip::BottomRight},
        {"outside beyond reach", {63, 50}, Grip::None},
    };
    for (const auto& c : cases)
        EXPECT_EQ(gripAt(r, c.point, 2), c.grip) << c.name;
}

TEST(AreaGeometry, ThinAreaGivesTheNearerEdge) {
    const SheetRect thin{20, 20, 22, 80};
    EXPECT_EQ(gripAt(thin, {20.2, 50}, 2), Grip::Left);
    EXPECT_EQ(gripAt(thin, {21.8, 50}, 2), Grip::Right);
}

TEST(AreaGeometry, DragsStayOnTheSheet) {
    const SheetRect s{10, 10, 40, 30};
    const struct {
        const char* name;
        Grip grip;
        int dx, dy;
        SheetRect result;
    } cases[] = {
        {"body moves whole", Grip::Body, 5, -3, {15, 7, 45, 27}},
        {"body stops at the left border", Grip::Body, -50, 0, {0, 10, 30, 30}},
        {"body stops at the top border", Grip::Body, 0, 200, {10, 100, 40, 120}},
        {"top edge alone", Grip::Top, 7, 9, {10, 10, 40, 39}},
        {"left edge crosses the right one", Grip::Left, 40, 0, {40, 10, 50, 30}},
        {"corner clamped to the sheet", Grip::TopRight, 500, 500, {10, 10, 120, 120}},
        {"bottom-left corner below zero", Grip::BottomLeft, -20, -20, {0, 0, 40, 30}},
        {"no grip changes nothing", Grip::None, 5, 5, {10, 10, 40, 30}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(dragRect(s, c.grip, c.dx, c.dy), c.result) << c.name;
}

TEST(AreaGeometry, SpanClampsBothPoints) {
    EXPECT_EQ(spanRect({50, 10}, {20, 40}), (SheetRect{20, 10, 50, 40}));
    EXPECT_EQ(spanRect({-5, 130}, {200, -1}), (SheetRect{0, 0, 120, 120}));
    EXPECT_EQ(clampToSheet(-32768), 0);
    EXPECT_EQ(clampToSheet(121), 120);
}

} // namespace
} // namespace mervak
