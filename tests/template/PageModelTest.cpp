#include "template/PageModel.h"

#include "platform/Checked16.h"
#include "support/TestAreas.h"
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
    const std::pair<QString, QString> cases[] = {
        {"teclat", "teclat.MVP"}, {"teclat.mvp", "teclat.MVP"}, {"teclat.MVP", "teclat.MVP"},
        {"a.b.MVP", "a.b.MVP"},   {"a.b.c", "a.MVP"},           {"teclat.", "teclat.MVP"},
    };
    for (const auto& [nompag, file] : cases)
        EXPECT_EQ(pageModelFileName(nompag), file) << nompag;
}

TEST(PageModel, ReadsAndWritesOnlyTheAreasOfThePageInArrayOrder) {
    const QByteArray golden = readAll(dataPath("template/golden.mvp"));
    QList<Area> areas;
    ASSERT_FALSE(readPageModel(golden + "\r\n\r\n", areas)) << "trailing blank lines are no record";
    ASSERT_EQ(areas.size(), 2);
    EXPECT_EQ(areas[0].Page, 0);
    Template t;
    const Area other = test::makeArea(0, 0, 0, 0, 2);
    t.AppendArea(other);
    for (Area a : areas) {
        a.Page = 1;
        t.AppendArea(a);
        t.AppendArea(other);
    }
    EXPECT_EQ(writePageModel(t, 1), golden);
    EXPECT_TRUE(writePageModel(t, 3).isEmpty());
}

// Pages in array order 1, 3, 2, 2, 3.
Template threePages() {
    Template t;
    t.PageCount = 3;
    const std::pair<int16_t, const char*> areas[] = {
        {1, "a1"}, {3, "c1"}, {2, "b1"}, {2, "b2"}, {3, "c2"}};
    for (const auto& [page, text] : areas)
        t.AppendArea(test::makeArea(0, 0, 10, 10, page, text));
    t.Modified = false;
    return t;
}

// Each Area as its ActionText and page, then the page count.
QString layout(const Template& t) {
    QStringList parts;
    for (int i = 1; i <= t.AreaCount(); ++i)
        parts.append(t.area(i).ActionText + u'@' + QString::number(t.area(i).Page));
    return parts.join(u' ') + QStringLiteral(" /") + QString::number(t.PageCount);
}

// Pictures "f1" and "f3" on pages 1 and 3 of threePages(), where they are now.
Template withPagePictures() {
    Template t = threePages();
    t.setPagePicture(1, QStringLiteral("f1"));
    t.setPagePicture(3, QStringLiteral("f3"));
    return t;
}

QString pagePictures(const Template& t) {
    QStringList parts;
    for (auto it = t.PagePictures.cbegin(); it != t.PagePictures.cend(); ++it)
        parts.append(it.value() + u'@' + QString::number(it.key()));
    return parts.join(u' ');
}

TEST(PageOperations, InsertPageRenumbersTheLaterPages) {
    EXPECT_EQ(placingCode(true, false), PlacingCode::Before);
    EXPECT_EQ(placingCode(false, true), PlacingCode::After);
    EXPECT_EQ(placingCode(false, false), 0);
    const struct {
        int16_t current;
        int16_t code;
        int16_t newCurrent;
        const char* layout;
        const char* pictures;
    } cases[] = {
        {2, PlacingCode::Before, 2, "a1@1 c1@4 b1@3 b2@3 c2@4 /4", "f1@1 f3@4"},
        {2, PlacingCode::After, 3, "a1@1 c1@4 b1@2 b2@2 c2@4 /4", "f1@1 f3@4"},
        {1, PlacingCode::Before, 1, "a1@2 c1@4 b1@3 b2@3 c2@4 /4", "f1@2 f3@4"},
        {3, PlacingCode::After, 4, "a1@1 c1@3 b1@2 b2@2 c2@3 /4", "f1@1 f3@3"},
        {1, 0, 2, "a1@1 c1@4 b1@3 b2@3 c2@4 /4", "f1@1 f3@4"}, // any other code goes after
    };
    for (const auto& c : cases) {
        Template t = withPagePictures();
        t.CurrentPage = c.current;
        insertPage(t, c.code);
        EXPECT_EQ(layout(t), QString::fromUtf8(c.layout));
        EXPECT_EQ(pagePictures(t), c.pictures) << c.layout;
        EXPECT_EQ(t.CurrentPage, c.newCurrent) << c.layout;
        EXPECT_EQ(t.PageAreaCount, 0) << c.layout;
        EXPECT_TRUE(t.Modified) << c.layout;
    }
    Template full = threePages();
    full.PageCount = 32767;
    EXPECT_THROW(insertPage(full, PlacingCode::After), Overflow16);
    EXPECT_EQ(layout(full), "a1@1 c1@3 b1@2 b2@2 c2@3 /32767");
}

// The last page becomes current, not the next one.
TEST(PageOperations, DeletePageRenumbersAndShowsTheLastPage) {
    const std::tuple<int16_t, const char*, const char*> cases[] = {
        {1, "c1@2 b1@1 b2@1 c2@2 /2", "f3@2"},
        {2, "a1@1 c1@2 c2@2 /2", "f1@1 f3@2"},
        {3, "a1@1 b1@2 b2@2 /2", "f1@1"}};
    for (const auto& [current, expected, pictures] : cases) {
        Template t = withPagePictures();
        t.CurrentPage = current;
        t.CurrentArea = 2;
        deletePage(t);
        EXPECT_EQ(layout(t), QString::fromUtf8(expected));
        EXPECT_EQ(pagePictures(t), pictures) << expected;
        EXPECT_EQ(t.CurrentPage, 2) << expected;
        EXPECT_EQ(t.CurrentArea, 1) << expected;
        EXPECT_EQ(t.PageAreaCount, 2) << expected;
        EXPECT_TRUE(t.Modified) << expected;
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
    t.PageCount = 4;
    t.CurrentPage = 2;
    ASSERT_FALSE(savePageModel(t, folder(), "teclat.mvp"));
    t.CurrentPage = 4;
    ASSERT_FALSE(savePageModel(t, folder(), "buit"));
    EXPECT_EQ(listPageModels(folder()), (QStringList{"buit.MVP", "teclat.MVP"}));

    t.CurrentPage = 1;
    ASSERT_FALSE(openPageModel(t, folder(), "teclat", PlacingCode::Before, {}));
    EXPECT_EQ(layout(t), "a1@2 c1@4 b1@3 b2@3 c2@4 b1@1 b2@1 /5");
    EXPECT_EQ(t.CurrentPage, 1);
    EXPECT_EQ(t.CurrentArea, 0);
    ASSERT_FALSE(openPageModel(t, folder(), "buit", PlacingCode::After, {}));
    EXPECT_EQ(layout(t), "a1@3 c1@5 b1@4 b2@4 c2@5 b1@1 b2@1 /6") << "an empty page 2";
}

TEST_F(PageModelFiles, ANewPageOrADanceMatSkipsTheModel) {
    const std::pair<QString, QString> cases[] = {
        {newPageName(), "EASY"}, {"missing", "DANCEPAD"}, {"missing", "trustmaster"}};
    for (const auto& [nompag, device] : cases) {
        Template t = threePages();
        ASSERT_FALSE(openPageModel(t, folder(), nompag, PlacingCode::After, device)) << device;
        EXPECT_EQ(layout(t), "a1@1 c1@4 b1@3 b2@3 c2@4 /4") << device;
    }
}

TEST_F(PageModelFiles, PasteAddsToTheCurrentPageAndFindsAnyCase) {
    test::writeAll(file("model.mvp"), readAll(dataPath("template/golden.mvp")));
    Template t = threePages();
    t.CurrentPage = 3;
    ASSERT_FALSE(pastePageModel(t, folder(), "MODEL"));
    EXPECT_EQ(layout(t), "a1@1 c1@3 b1@2 b2@2 c2@3 {|Sona bell.WAV}\"a\"@3 @3 /3");
    EXPECT_EQ(t.area(7).Clip, "x.bmp");
    EXPECT_TRUE(t.Modified);
    EXPECT_EQ(t.CurrentArea, 0);
}

TEST_F(PageModelFiles, AModelThatDoesNotReadChangesNothing) {
    test::writeAll(file("trencat.MVP"), readAll(dataPath("template/broken/truncated.mvp")));
    for (const auto& [nompag, line] : {std::pair{"trencat", 15}, std::pair{"cap", 0}}) {
        Template t = threePages();
        const auto error = openPageModel(t, folder(), nompag, PlacingCode::After, {});
        ASSERT_TRUE(error) << nompag;
        EXPECT_EQ(error->message, 3) << nompag;
        EXPECT_EQ(error->line, line) << nompag;
        EXPECT_TRUE(error->argument.endsWith(".MVP")) << nompag;
        EXPECT_EQ(layout(t), layout(threePages())) << nompag;
    }
}

} // namespace
} // namespace mervak
