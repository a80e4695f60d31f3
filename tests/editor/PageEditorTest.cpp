#include "editor/PageEditor.h"

#include "editor/AreaSelection.h"
#include "support/TestFiles.h"
#include "template/PageOperations.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

class PageEditorTest : public ::testing::Test {
protected:
    void SetUp() override {
        tmpl.PageCount = 3;
        for (int16_t page : {1, 2, 3, 2}) {
            Area a;
            a.Page = page;
            a.X1 = a.Y1 = static_cast<int16_t>(10 * page);
            a.ActionText = QStringLiteral("p") + QString::number(page);
            tmpl.AppendArea(a);
        }
        tmpl.CurrentPage = 2;
        tmpl.Modified = false;
    }

    QList<int16_t> pages() const {
        QList<int16_t> list;
        for (int16_t i = 1; i <= tmpl.AreaCount(); ++i)
            list.append(tmpl.area(i).Page);
        return list;
    }

    QTemporaryDir home;
    Template tmpl;
    UndoSnapshot snapshot{home.path()};
    PageEditor pages_{tmpl, snapshot, home.path()};
};

TEST_F(PageEditorTest, DeletingAPageShowsTheLastAndUndoes) {
    ASSERT_TRUE(pages_.canDeletePage());
    EXPECT_FALSE(pages_.deletePage());
    EXPECT_EQ(tmpl.PageCount, 2);
    EXPECT_EQ(tmpl.CurrentPage, 2);
    EXPECT_EQ(pages(), (QList<int16_t>{1, 2}));
    EXPECT_TRUE(tmpl.Modified);
    EXPECT_EQ(tmpl.SelectedArea, 2);
    EXPECT_EQ(counterTexts(tmpl).MsgArea, QStringLiteral("1/1 àrees"));
    ASSERT_FALSE(snapshot.undo(tmpl));
    EXPECT_EQ(tmpl.PageCount, 3);
    EXPECT_EQ(pages(), (QList<int16_t>{1, 2, 3, 2}));
}

TEST_F(PageEditorTest, TheOnlyPageIsNeverDeleted) {
    Template single;
    PageEditor editor{single, snapshot, home.path()};
    EXPECT_FALSE(editor.canDeletePage());
    EXPECT_FALSE(editor.deletePage());
    EXPECT_EQ(single.PageCount, 1);
}

TEST_F(PageEditorTest, ModelsRoundTripThroughTheHomeFolder) {
    ASSERT_FALSE(pages_.saveModel(QStringLiteral("teclat")));
    EXPECT_TRUE(QFile::exists(QDir(home.path()).filePath(QStringLiteral("teclat.MVP"))));
    ASSERT_FALSE(
        pages_.addPage(QStringLiteral("teclat"), PlacingCode::Before, QStringLiteral("EASY")));
    EXPECT_EQ(tmpl.PageCount, 4);
    EXPECT_EQ(tmpl.CurrentPage, 2);
    EXPECT_EQ(tmpl.PageAreaCount, 2);
    EXPECT_EQ(pages(), (QList<int16_t>{1, 3, 4, 3, 2, 2}));
    ASSERT_FALSE(pages_.pasteModel(QStringLiteral("teclat.mvp")));
    EXPECT_EQ(tmpl.PageAreaCount, 4);
    EXPECT_EQ(tmpl.SelectedArea, 0);
}

TEST_F(PageEditorTest, ABrokenModelChangesNothing) {
    test::writeAll(QDir(home.path()).filePath(QStringLiteral("trencat.MVP")), "1\r\n2\r\nxx\r\n");
    const auto error = pages_.pasteModel(QStringLiteral("trencat"));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->message, TemplateMessage::ReadError);
    EXPECT_TRUE(
        pages_.addPage(QStringLiteral("trencat"), PlacingCode::After, QStringLiteral("EASY")));
    EXPECT_EQ(pages(), (QList<int16_t>{1, 2, 3, 2}));
    EXPECT_FALSE(tmpl.Modified);
}

} // namespace
} // namespace mervak
