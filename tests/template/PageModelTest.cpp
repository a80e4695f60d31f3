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

TEST(PageModel, NameRuleComparesTheExtensionWithCase) {
    const struct {
        const char* nompag;
        const char* file;
    } cases[] = {
        {"teclat", "teclat.MVP"}, {"teclat.mvp", "teclat.MVP"}, {"teclat.MVP", "teclat.MVP"},
        {"a.b.MVP", "a.b.MVP"},   {"a.b.c", "a.MVP"},           {"teclat.", "teclat.MVP"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(pageModelFileName(QString::fromUtf8(c.nompag)), QString::fromUtf8(c.file))
            << c.nompag;
}

TEST(PageModel, ReadsAndWritesOnlyTheAreasOfThePageInArrayOrder) {
    const QByteArray golden = readAll(dataPath("template/golden.mvp"));
    QList<Area> areas;
    ASSERT_FALSE(readPageModel(golden + "\r\n\r\n", areas)) << "trailing blank lines are no record";
    ASSERT_EQ(areas.size(), 2);
    EXPECT_EQ(areas[0].Page, 0);
    EXPECT_EQ(areas[0].ActionText, QStringLiteral("{|Sona bell.WAV}\"a\""));
    Template t;
    t.PageCount = 2;
    Area other;
    other.Page = 2;
    t.AppendArea(other);
    for (Area a : areas) {
        a.Page = 1;
        t.AppendArea(a);
        t.AppendArea(other);
    }
    EXPECT_EQ(writePageModel(t, 1), golden);
    EXPECT_TRUE(writePageModel(t, 3).isEmpty());
}

TEST(PageModel, BrokenModelsSayWhere) {
    const struct {
        QByteArray bytes;
        int line;
    } cases[] = {
        {readAll(dataPath("template/broken/truncated.mvp")), 15},
        {QByteArray("x\r\n"), 1},
        {QByteArray(" 1 \r\n 2 \r\n 3 \r\n 4 \r\n 0 \r\n 5 \r\n"), 6},
    };
    for (const auto& c : cases) {
        QList<Area> areas;
        const auto error = readPageModel(c.bytes, areas);
        ASSERT_TRUE(error) << c.line;
        EXPECT_EQ(error->line, c.line);
    }
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
    const std::pair<int16_t, const char*> areas[] = {
        {1, "a1"}, {3, "c1"}, {2, "b1"}, {2, "b2"}, {3, "c2"}};
    for (const auto& [page, text] : areas)
        t.AppendArea(areaOn(page, text));
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

TEST(PageOperations, InsertPageRenumbersTheLaterPages) {
    const struct {
        int16_t current;
        int16_t code;
        int16_t newCurrent;
        const char* layout;
    } cases[] = {
        {2, PlacingCode::Before, 2, "a1@1 c1@4 b1@3 b2@3 c2@4"},
        {2, PlacingCode::After, 3, "a1@1 c1@4 b1@2 b2@2 c2@4"},
        {1, PlacingCode::Before, 1, "a1@2 c1@4 b1@3 b2@3 c2@4"},
        {3, PlacingCode::After, 4, "a1@1 c1@3 b1@2 b2@2 c2@3"},
        {1, 0, 2, "a1@1 c1@4 b1@3 b2@3 c2@4"}, // any other code goes after
    };
    for (const auto& c : cases) {
        Template t = threePages();
        t.CurrentPage = c.current;
        insertPage(t, c.code);
        EXPECT_EQ(t.PageCount, 4) << c.layout;
        EXPECT_EQ(t.CurrentPage, c.newCurrent) << c.layout;
        EXPECT_EQ(t.PageAreaCount, 0) << c.layout;
        EXPECT_TRUE(t.Modified) << c.layout;
        EXPECT_EQ(layout(t), QString::fromUtf8(c.layout));
    }
    Template full = threePages();
    full.PageCount = 32767;
    EXPECT_THROW(insertPage(full, PlacingCode::After), Overflow16);
    EXPECT_EQ(full.PageCount, 32767);
    EXPECT_EQ(layout(full), layout(threePages()));
}

// The last page becomes current, not the next one.
TEST(PageOperations, DeletePageRenumbersAndShowsTheLastPage) {
    const struct {
        int16_t current;
        const char* layout;
    } cases[] = {
        {1, "c1@2 b1@1 b2@1 c2@2"},
        {2, "a1@1 c1@2 c2@2"},
        {3, "a1@1 b1@2 b2@2"},
    };
    for (const auto& c : cases) {
        Template t = threePages();
        t.CurrentPage = c.current;
        t.CurrentArea = 2;
        deletePage(t);
        EXPECT_EQ(layout(t), QString::fromUtf8(c.layout));
        EXPECT_EQ(t.PageCount, 2) << c.layout;
        EXPECT_EQ(t.CurrentPage, 2) << c.layout;
        EXPECT_EQ(t.CurrentArea, 1) << c.layout;
        EXPECT_EQ(t.PageAreaCount, 2) << c.layout;
        EXPECT_TRUE(t.Modified) << c.layout;
    }
}

class PageModelFiles : public ::testing::Test {
protected:
    QTemporaryDir home;
    QString folder() const { return home.path(); }
    QString file(const QString& name) const { return QDir(folder()).filePath(name); }
};

TEST_F(PageModelFiles, SaveThenOpenIntoANewPage) {
    Template t = threePages();
    t.CurrentPage = 2;
    ASSERT_FALSE(savePageModel(t, folder(), QStringLiteral("teclat.mvp")));
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
    EXPECT_TRUE(QFileInfo::exists(file("buit.MVP")));
    t.CurrentPage = 1;
    ASSERT_FALSE(openPageModel(t, folder(), QStringLiteral("buit"), PlacingCode::After, {}));
    EXPECT_EQ(t.PageCount, 5);
    EXPECT_EQ(t.CurrentPage, 2);
    EXPECT_EQ(t.areasOfPage(2).size(), 0);
}

TEST_F(PageModelFiles, ANewPageOrADanceMatSkipsTheModel) {
    const struct {
        QString nompag;
        QString device;
    } cases[] = {
        {newPageName(), "EASY"},
        {"missing", "DANCEPAD"},
        {"missing", "trustmaster"},
    };
    for (const auto& c : cases) {
        Template t = threePages();
        ASSERT_FALSE(openPageModel(t, folder(), c.nompag, PlacingCode::After, c.device))
            << c.device;
        EXPECT_EQ(t.PageCount, 4) << c.device;
        EXPECT_EQ(t.AreaCount(), 5) << c.device;
    }
}

TEST_F(PageModelFiles, PasteAddsToTheCurrentPageAndFindsAnyCase) {
    test::writeAll(file("model.mvp"), readAll(dataPath("template/golden.mvp")));
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
    test::writeAll(file("trencat.MVP"), readAll(dataPath("template/broken/truncated.mvp")));
    for (const char* nompag : {"trencat", "cap"}) {
        Template t = threePages();
        const auto error =
            openPageModel(t, folder(), QString::fromUtf8(nompag), PlacingCode::After, {});
        ASSERT_TRUE(error) << nompag;
        EXPECT_EQ(error->message, 3) << nompag;
        EXPECT_TRUE(error->argument.endsWith(QStringLiteral(".MVP"))) << nompag;
        EXPECT_EQ(layout(t) + QString::number(t.PageCount), layout(threePages()) + "3") << nompag;
    }
}

} // namespace
} // namespace mervak
