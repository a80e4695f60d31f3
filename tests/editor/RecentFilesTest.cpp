#include "editor/RecentFiles.h"

#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

class RecentFilesTest : public ::testing::Test {
protected:
    QTemporaryDir home;
    QString ini = QDir(home.path()).filePath(QStringLiteral("MERVAK.INI"));
    RecentFiles recent{PrivateProfile(ini)};
};

TEST_F(RecentFilesTest, NewestFirstWithoutRepeats) {
    EXPECT_TRUE(recent.files().isEmpty());
    for (const char* path : {"/a.mvw", "/b.mvw", "/a.mvw", "/c d/é.mvw"})
        ASSERT_TRUE(recent.add(QString::fromUtf8(path)));
    EXPECT_EQ(recent.files(), (QStringList{QStringLiteral("/c d/é.mvw"), QStringLiteral("/a.mvw"),
                                           QStringLiteral("/b.mvw")}));
    ASSERT_TRUE(recent.remove(QStringLiteral("/a.mvw")));
    EXPECT_EQ(recent.files(),
              (QStringList{QStringLiteral("/c d/é.mvw"), QStringLiteral("/b.mvw")}));
    EXPECT_TRUE(recent.remove(QStringLiteral("/not there.mvw")));
}

TEST_F(RecentFilesTest, KeepsAtMostEightAndTheOtherSettings) {
    test::writeAll(ini, "[Mervak]\r\nIdioma=ESPA\xd1OL\r\n");
    for (int n = 1; n <= 10; ++n)
        ASSERT_TRUE(recent.add(QStringLiteral("/t%1.mvw").arg(n)));
    const QStringList files = recent.files();
    ASSERT_EQ(files.size(), RecentFiles::kMaxFiles);
    EXPECT_EQ(files.first(), QStringLiteral("/t10.mvw"));
    EXPECT_EQ(files.last(), QStringLiteral("/t3.mvw"));
    EXPECT_EQ(
        PrivateProfile(ini).readString(QStringLiteral("Mervak"), QStringLiteral("Idioma"), {}, 100),
        QStringLiteral("ESPAÑOL"));
}

TEST_F(RecentFilesTest, HandEditedListIsCleanedOnReading) {
    test::writeAll(ini, "[recents]\r\nfitxer2=/x.mvw\r\nFitxer1=\r\nFitxer3=/x.mvw\r\n"
                        "Fitxer9=/ignored.mvw\r\nFitxer4=/y.mvw\r\n");
    EXPECT_EQ(recent.files(), (QStringList{QStringLiteral("/x.mvw"), QStringLiteral("/y.mvw")}));
}

TEST_F(RecentFilesTest, UnwritableFileIsReported) {
    RecentFiles nowhere{PrivateProfile(QStringLiteral("/proc/no/such/dir/MERVAK.INI"))};
    QString error;
    EXPECT_FALSE(nowhere.add(QStringLiteral("/a.mvw"), &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_TRUE(nowhere.files().isEmpty());
}

TEST(RecentFileLabels, TwoTemplatesOfOneNameTellTheirFolders) {
    const QStringList paths{"/escola/animals.mvw", "/casa/Animals.mvw", "/a/jocs/colors.mvw",
                            "/b/jocs/colors.mvw", "/b/jocs/formes.mvw"};
    EXPECT_EQ(recentFileLabels(paths),
              (QStringList{"animals.mvw — escola", "Animals.mvw — casa", "colors.mvw — /a/jocs",
                           "colors.mvw — /b/jocs", "formes.mvw"}));
}

} // namespace
} // namespace mervak
