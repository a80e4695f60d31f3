#include "editor/UndoSnapshot.h"

#include "editor/RecoveryFile.h"
#include "support/TestFiles.h"
#include "template/PageOperations.h"
#include "template/TemplateFile.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

class UndoSnapshotTest : public ::testing::Test {
protected:
    QTemporaryDir home;
    QTemporaryDir work;
    UndoSnapshot snapshot{home.path()};

    Template userTemplate() {
        Template t;
        t.PageCount = 2;
        for (int16_t page : {1, 2}) {
            Area a;
            a.Page = page;
            a.ActionText = QStringLiteral("pàgina ") + QString::number(page);
            t.AppendArea(a);
        }
        EXPECT_FALSE(saveTemplate(t, QDir(work.path()).filePath(QStringLiteral("meva.mvw"))).error);
        return t;
    }
};

TEST_F(UndoSnapshotTest, TheSnapshotIsTheVersion2File) {
    const Template t = userTemplate();
    ASSERT_FALSE(snapshot.take(t));
    EXPECT_EQ(snapshot.snapshotPath(), QDir(home.path()).filePath(QStringLiteral("tmp.bin")));
    EXPECT_EQ(test::readAll(snapshot.snapshotPath()), test::readAll(t.TemplateFileName));
}

TEST_F(UndoSnapshotTest, UndoAfterLoadingAPageModelKeepsTheUsersName) {
    Template t = userTemplate();
    const QString name = t.TemplateFileName;
    ASSERT_FALSE(snapshot.run(t, UndoSnapshot::Mode::BeforePageEdit));
    ASSERT_FALSE(openPageModel(t, home.path(), newPageName(), PlacingCode::After, {}));
    ASSERT_EQ(t.PageCount, 3);

    ASSERT_FALSE(snapshot.run(t, UndoSnapshot::Mode::Undo));
    EXPECT_EQ(t.PageCount, 2);
    EXPECT_EQ(t.AreaCount(), 2);
    EXPECT_EQ(t.TemplateFileName, name);
    EXPECT_EQ(windowTitle(t), QStringLiteral("Mervak - ") + name);
    EXPECT_TRUE(QFile::exists(QDir(home.path()).filePath(QStringLiteral("tmp.mvw"))));
}

TEST_F(UndoSnapshotTest, AMissingOrBrokenSnapshotChangesNothing) {
    Template t = userTemplate();
    const auto error = snapshot.undo(t);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->argument, snapshot.snapshotPath());
    test::writeAll(snapshot.snapshotPath(), "garbage");
    ASSERT_TRUE(snapshot.undo(t));
    EXPECT_EQ(t.AreaCount(), 2);
}

TEST_F(UndoSnapshotTest, OnlyUnsavedEditsAreKeptForRecovery) {
    Template t = userTemplate();
    const RecoveryFile recovery(home.path());
    ASSERT_FALSE(recovery.keepUnsaved(t));
    EXPECT_FALSE(recovery.exists()) << "saved work needs no recovery";
    t.area(2).ActionText = QStringLiteral("canviat");
    t.Modified = true;
    ASSERT_FALSE(recovery.keepUnsaved(t));
    Template back;
    ASSERT_FALSE(loadTemplateFile(recovery.path(), back));
    EXPECT_EQ(back.area(2).ActionText, QStringLiteral("canviat"));
}

} // namespace
} // namespace mervak
