#include "app/HelpWindow.h"

#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// The guide in the interface language, the Catalan one when there is no other,
// shown with its pictures; a missing guide is said, not shown empty.
TEST(HelpWindow, ShowsTheGuideOfTheInterfaceLanguage) {
    QTemporaryDir folder;
    const QDir dir(folder.path());
    ASSERT_TRUE(dir.mkpath(QStringLiteral("guia")));
    QImage(8, 8, QImage::Format_RGB32).save(dir.filePath(QStringLiteral("guia/inici.png")));
    test::writeAll(dir.filePath(QStringLiteral("guia.md")),
                   "# Guia del mestre\n\n![inici](guia/inici.png)\n");
    HelpWindow help;
    EXPECT_EQ(guidePath(folder.path(), Language::Spanish), dir.filePath(QStringLiteral("guia.md")));
    ASSERT_TRUE(help.showGuide(guidePath(folder.path(), Language::Catalan), Language::Catalan));
    EXPECT_TRUE(help.toPlainText().startsWith(QStringLiteral("Guia del mestre")));
    EXPECT_FALSE(help.document()
                     ->resource(QTextDocument::ImageResource, QUrl(QStringLiteral("guia/inici.png")))
                     .isNull());
    test::writeAll(dir.filePath(QStringLiteral("guia.es.md")), "# Guía del maestro\n");
    ASSERT_TRUE(help.showGuide(guidePath(folder.path(), Language::Spanish), Language::Spanish));
    EXPECT_EQ(help.windowTitle(), QStringLiteral("Guía del maestro"));
    EXPECT_TRUE(help.toPlainText().startsWith(QStringLiteral("Guía del maestro")));
    EXPECT_FALSE(help.showGuide(dir.filePath(QStringLiteral("cap.md")), Language::Catalan));
}

} // namespace
} // namespace mervak
