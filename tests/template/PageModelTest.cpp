#include "template/PageModel.h"

#include "platform/Checked16.h"
#include "support/TestFiles.h"
#include "template/PageOperations.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::dataPath;
using test::readAll;
using test::writeAll;

TEST(PageModel, NameRuleComparesTheExtensionWithCase) {
    const struct {
        const char* nompag;
        const char* file;
    } cases[] = {
        {"teclat", "teclat.MVP"},
        {"teclat.abc", "teclat.MVP"},
        {"teclat.mvp", "teclat.MVP"},
        {"teclat.MVP", "teclat.MVP"},
        {"a.b.MVP", "a.b.MVP"},
        {"a.b.c", "a.MVP"},
        {"teclat.", "teclat.MVP"},
        {".MVP", ".MVP"},
        {"Pàgina nova", "Pàgina nova.MVP"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(pageModelFileName(QString::fromUtf8(c.nompag)), QString::fromUtf8(c.file))
            << c.nompag;
}

TEST(PageModel, ReadsTheGoldenFile) {
    QList<Area> areas;
    ASSERT_FALSE(readPageModel(readAll(dataPath("template/golden.mvp")), areas));
    ASSERT_EQ(areas.size(), 2);
    EXPECT_EQ(areas[0].X0, 1);
    EXPECT_EQ(areas[0].Y1, 4);
    EXPECT_EQ(areas[0].Page, 0);
    EXPECT_EQ(areas[0].ActionText, QStringLiteral("{|Sona bell.WAV}\"a\""));
    EXPECT_EQ(areas[1].ClipFlag, 1);
    EXPECT_EQ(areas[1].Clip, QStringLiteral("x.bmp"));
    EXPECT_EQ(areas[1].Flags, -1);
}

TEST(PageModel, WritesOnlyTheAreasOfThePageInArrayOrder) {
    QList<Area> areas;
    ASSERT_FALSE(readPageModel(readAll(dataPath("template/golden.mvp")), areas));
    Template t;
    t.PageCount = 2;
    Area other;
    other.Page = 2;
    other.ActionText = QStringLiteral("other");
    t.AppendArea(other);
    for (Area a : areas) {
        a.Page = 1;
        t.AppendArea(a);
        t.AppendArea(other);
    }
    EXPECT_EQ(writePageModel(t, 1), readAll(dataPath("template/golden.mvp")));
    EXPECT_TRUE(writePageModel(t, 3).isEmpty());
}

struct BrokenModel {
    const char* name;
    QByteArray bytes;
    int line;
};

TEST(PageModel, BrokenModelsSayWhere) {
    const QByteArray good = readAll(dataPath("template/golden.mvp"));
    const BrokenModel cases[] = {
        {"cut record", readAll(dataPath("template/broken/truncated.mvp")), 15},
        {"text for number", QByteArray("x\r\n"), 1},
        {"number for text", QByteArray(" 1 \r\n 2 \r\n 3 \r\n 4 \r\n 0 \r\n 5 \r\n"), 6},
    };
    for (const auto& c : cases) {
        QList<Area> areas;
        const auto error = readPageModel(c.bytes, areas);
        ASSERT_TRUE(error) << c.name;
        EXPECT_EQ(error->line, c.line) << c.name;
    }
    QList<Area> areas;
    EXPECT_FALSE(readPageModel(good + "\r\n\r\n", areas)) << "trailing blank lines are no record";
    EXPECT_EQ(areas.size(), 2);
}

Area areaOn(int16_t page, const char* text) {
    Area a;
    a.Page = page;
    a.X1 = 10;
    a.Y1 = 10;
    a.ActionText = QString::fromUtf8(text);
    return a;
}

Template threePages() {
    Template t;
    t.PageCount = 3;
    t.AppendArea(areaOn(1, "a1"));
    t.AppendArea(areaOn(3, "c1"));
    t.AppendArea(areaOn(2, "b1"));
    t.AppendArea(areaOn(2, "b2"));
    t.AppendArea(areaOn(3, "c2"));
    t.Modified = false;
    return t;
}

QString layout(const Template& t) {
    QStringList parts;
    for (int i = 1; i <= t.AreaCount(); ++i)
        parts.append(t.area(i).ActionText + u'@' + QString::number(t.area(i).Page));
    return parts.join(u' ');
}

TEST(PageOperations, PlacingCodeFromTheOptionButtons) {
    EXPECT_EQ(placingCode(true, false), PlacingCode::Before);
    EXPECT_EQ(placingCode(false, true), PlacingCode::After);
    EXPECT_EQ(placingCode(false, false), 0);
}

struct InsertCase {
    const char* name;
    int16_t current;
    int16_t code;
    int16_t newCurrent;
    const char* layout;
};

TEST(PageOperations, InsertPageRenumbersTheLaterPages) {
    const InsertCase cases[] = {
        {"before page 2", 2, PlacingCode::Before, 2, "a1@1 c1@4 b1@3 b2@3 c2@4"},
        {"after page 2", 2, PlacingCode::After, 3, "a1@1 c1@4 b1@2 b2@2 c2@4"},
        {"before page 1", 1, PlacingCode::Before, 1, "a1@2 c1@4 b1@3 b2@3 c2@4"},
        {"after the last", 3, PlacingCode::After, 4, "a1@1 c1@3 b1@2 b2@2 c2@3"},
        {"other codes go after", 1, 0, 2, "a1@1 c1@4 b1@3 b2@3 c2@4"},
    };
    for (const auto& c : cases) {
        Template t = threePages();
        t.CurrentPage = c.current;
        insertPage(t, c.code);
        EXPECT_EQ(t.PageCount, 4) << c.name;
        EXPECT_EQ(t.CurrentPage, c.newCurrent) << c.name;
        EXPECT_EQ(t.PageAreaCount, 0) << c.name;
        EXPECT_TRUE(t.Modified) << c.name;
        EXPECT_EQ(layout(t), QString::fromUtf8(c.layout)) << c.name;
    }
}

TEST(PageOperations, InsertPageStopsAt32767Pages) {
    Template t = threePages();
    t.PageCount = 32767;
    EXPECT_THROW(insertPage(t, PlacingCode::After), Overflow16);
    EXPECT_EQ(t.PageCount, 32767);
    EXPECT_EQ(layout(t), layout(threePages()));
}

TEST(PageOperations, DeletingPage2Of3ShowsTheNewLastPage) {
    Template t = threePages();
    t.CurrentPage = 2;
    t.CurrentArea = 2;
    t.PageAreaCount = 2;
    deletePage(t);
    EXPECT_EQ(layout(t), QStringLiteral("a1@1 c1@2 c2@2"));
    EXPECT_EQ(t.PageCount, 2);
    EXPECT_EQ(t.CurrentPage, 2);
    EXPECT_EQ(t.CurrentArea, 1);
    EXPECT_EQ(t.PageAreaCount, 2);
    EXPECT_TRUE(t.Modified);
}

TEST(PageOperations, DeletingPage1GoesToTheLastPageNotTheNext) {
    Template t = threePages();
    t.CurrentPage = 1;
    deletePage(t);
    EXPECT_EQ(layout(t), QStringLiteral("c1@2 b1@1 b2@1 c2@2"));
    EXPECT_EQ(t.CurrentPage, 2);
}

TEST(PageOperations, DeletingAPageOfAFullTemplate) {
    Template t;
    t.PageCount = 2;
    for (int i = 0; i < Template::kMaxAreas; ++i)
        t.AppendArea(areaOn(static_cast<int16_t>(i % 2 + 1), "x"));
    t.CurrentPage = 1;
    t.CurrentArea = 0;
    deletePage(t);
    EXPECT_EQ(t.AreaCount(), 16383);
    EXPECT_EQ(t.countAreasOfPage(1), 16383);
    EXPECT_EQ(writePageModel(t, 1).count("\r\n"), 16383 * 8);
}

TEST(PageOperations, DeletingTheOnlyPageLeavesNoPage) {
    Template t;
    t.AppendArea(areaOn(1, "a"));
    ASSERT_TRUE(canDeletePage(t));
    deletePage(t);
    EXPECT_EQ(t.AreaCount(), 0);
    EXPECT_EQ(t.PageCount, 0);
    EXPECT_EQ(t.CurrentPage, 0);
    EXPECT_FALSE(canDeletePage(t));
}

class PageModelFiles : public ::testing::Test {
protected:
    QTemporaryDir home;
    QString folder() const { return home.path(); }
};

TEST_F(PageModelFiles, SaveThenOpenIntoANewPage) {
    Template t = threePages();
    t.CurrentPage = 2;
    ASSERT_FALSE(savePageModel(t, folder(), QStringLiteral("teclat.mvp")));
    EXPECT_TRUE(QFile::exists(QDir(folder()).filePath(QStringLiteral("teclat.MVP"))));
    EXPECT_EQ(listPageModels(folder()), QStringList{QStringLiteral("teclat.MVP")});

    t.CurrentPage = 1;
    ASSERT_FALSE(openPageModel(t, folder(), QStringLiteral("teclat"), PlacingCode::Before, {}));
    EXPECT_EQ(t.PageCount, 4);
    EXPECT_EQ(t.CurrentPage, 1);
    EXPECT_EQ(t.CurrentArea, 0);
    EXPECT_EQ(layout(t), QStringLiteral("a1@2 c1@4 b1@3 b2@3 c2@4 b1@1 b2@1"));
}

TEST_F(PageModelFiles, AnEmptyPageSavesAnEmptyModelThatOpensAsAnEmptyPage) {
    Template t = threePages();
    t.PageCount = 4;
    t.CurrentPage = 4;
    ASSERT_FALSE(savePageModel(t, folder(), QStringLiteral("buit")));
    EXPECT_TRUE(readAll(QDir(folder()).filePath(QStringLiteral("buit.MVP"))).isEmpty());
    EXPECT_TRUE(QFileInfo::exists(QDir(folder()).filePath(QStringLiteral("buit.MVP"))));
    t.CurrentPage = 1;
    ASSERT_FALSE(openPageModel(t, folder(), QStringLiteral("buit"), PlacingCode::After, {}));
    EXPECT_EQ(t.PageCount, 5);
    EXPECT_EQ(t.CurrentPage, 2);
    EXPECT_EQ(t.countAreasOfPage(2), 0);
}

TEST_F(PageModelFiles, ANewPageOrADanceMatSkipsTheModel) {
    const struct {
        const char* name;
        QString nompag;
        QString device;
    } cases[] = {
        {"new page", newPageName(), QStringLiteral("EASY")},
        {"dance pad", QStringLiteral("missing"), QStringLiteral("DANCEPAD")},
        {"joystick", QStringLiteral("missing"), QStringLiteral("trustmaster")},
    };
    for (const auto& c : cases) {
        Template t = threePages();
        ASSERT_FALSE(openPageModel(t, folder(), c.nompag, PlacingCode::After, c.device)) << c.name;
        EXPECT_EQ(t.PageCount, 4) << c.name;
        EXPECT_EQ(t.AreaCount(), 5) << c.name;
    }
}

TEST_F(PageModelFiles, PasteAddsToTheCurrentPageAndFindsAnyCase) {
    writeAll(QDir(folder()).filePath(QStringLiteral("model.mvp")),
             readAll(dataPath("template/golden.mvp")));
    Template t = threePages();
    t.CurrentPage = 3;
    ASSERT_FALSE(pastePageModel(t, folder(), QStringLiteral("MODEL")));
    EXPECT_EQ(t.PageCount, 3);
    EXPECT_EQ(t.AreaCount(), 7);
    EXPECT_EQ(t.area(6).Page, 3);
    EXPECT_EQ(t.area(7).Clip, QStringLiteral("x.bmp"));
    EXPECT_TRUE(t.Modified);
    EXPECT_EQ(t.CurrentArea, 0);
}

TEST_F(PageModelFiles, AModelThatDoesNotReadChangesNothing) {
    writeAll(QDir(folder()).filePath(QStringLiteral("trencat.MVP")),
             readAll(dataPath("template/broken/truncated.mvp")));
    const struct {
        const char* name;
        const char* nompag;
    } cases[] = {{"broken", "trencat"}, {"missing", "cap"}};
    for (const auto& c : cases) {
        Template t = threePages();
        const auto error =
            openPageModel(t, folder(), QString::fromUtf8(c.nompag), PlacingCode::After, {});
        ASSERT_TRUE(error) << c.name;
        EXPECT_EQ(error->message, 3) << c.name;
        EXPECT_TRUE(error->argument.endsWith(QStringLiteral(".MVP"))) << c.name;
        EXPECT_EQ(t.PageCount, 3) << c.name;
        EXPECT_EQ(layout(t), layout(threePages())) << c.name;
    }
}

} // namespace
} // namespace mervak
