#include "scanning/ScanLayout.h"

#include "scanning/ScanText.h"
#include "support/TestAreas.h"
#include "template/AreaHitTest.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace mervak {
namespace {

struct Box {
    int16_t x0, y0, x1, y1;
    const char* text;
};

struct LayoutCase {
    const char* name;
    std::vector<Box> areas;
    const char* expected; // rows of Area numbers: "1 2|3"
};

QString layoutOf(const Template& t) {
    QStringList rows;
    for (const ScanRow& row : scanRows(t)) {
        QStringList items;
        for (const ScanItem& item : row) {
            items.append(QString::number(item.area));
            EXPECT_EQ(FindArea(t, item.x, item.y).index, item.area)
                << "press point of " << item.area;
        }
        rows.append(items.join(u' '));
    }
    return rows.join(u'|');
}

TEST(ScanLayoutTest, RowsRunTopToBottomAndLeftToRightWhateverTheSizes) {
    const LayoutCase cases[] = {
        {"a grid stored in any order",
         {{60, 0, 119, 59, "d"},
          {0, 60, 59, 119, "a"},
          {0, 0, 59, 59, "c"},
          {60, 60, 119, 119, "b"}},
         "2 4|3 1"},
        {"a tall Area beside two rows belongs to the first",
         {{0, 0, 39, 119, "tall"}, {40, 60, 119, 119, "up"}, {40, 0, 119, 59, "down"}},
         "1 2|3"},
        {"uneven heights in one row", {{0, 80, 30, 119, "a"}, {40, 90, 70, 110, "b"}}, "1 2"},
        {"an Area that does nothing is not scanned",
         {{0, 0, 50, 50, ""}, {60, 0, 110, 50, "x"}},
         "2"},
        {"an Area wholly under an earlier one is not scanned",
         {{0, 0, 100, 100, "big"}, {10, 10, 20, 20, "hidden"}},
         "1"},
        {"a partly covered Area is pressed where it shows",
         {{0, 0, 60, 100, "left"}, {0, 0, 100, 100, "under"}},
         "1 2"},
    };
    for (const LayoutCase& c : cases) {
        Template t;
        for (const Box& b : c.areas)
            t.AppendArea(test::makeArea(b.x0, b.y0, b.x1, b.y1, 1, QString::fromUtf8(b.text)));
        t.CurrentPage = 1;
        EXPECT_EQ(layoutOf(t), QString::fromUtf8(c.expected)) << c.name;
    }
}

TEST(ScanTextTest, LabelsAndLevelsComeFromTheActionText) {
    struct Case {
        const char* actionText;
        const char* label;
        std::optional<ScanLevel> level;
    };
    const Case cases[] = {
        {"hola{ENTER}", "hola", std::nullopt},
        {"{|Llegir bon dia}bon dia{ENTER}", "bon dia", std::nullopt},
        {"^c{|Pagina 2}", "", std::nullopt},
        {"{|Nivell -1}", "", ScanLevel::Previous},
        {"{|nivel 0}x", "x", ScanLevel::Initial},
        {"{|Nivell 3}", "", std::nullopt},
    };
    for (const Case& c : cases) {
        const QString text = QString::fromUtf8(c.actionText);
        EXPECT_EQ(scanLabel(text), QString::fromUtf8(c.label)) << c.actionText;
        EXPECT_EQ(scanLevelOf(text), c.level) << c.actionText;
    }
}

} // namespace
} // namespace mervak
