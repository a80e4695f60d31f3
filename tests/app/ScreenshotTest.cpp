#include "EditorFixture.h"

#include <QFile>

namespace mervak::test {
namespace {

// Pictures of the editor over the demo sheet, for looking at and for the README.
class ScreenshotTest : public EditorFixture {
protected:
    void SetUp() override {
        for (const char* name : {"demo.mvw", "demo.png"}) {
            const QString target = QDir(home.path()).filePath(QString::fromLatin1(name));
            ASSERT_TRUE(QFile::copy(
                QDir(QStringLiteral(MERVAK_DEMO_DIR)).filePath(QString::fromLatin1(name)), target));
        }
        ASSERT_TRUE(document.open(QDir(home.path()).filePath(QStringLiteral("demo.mvw"))));
        window.editorActions().draw->trigger();
        clickOnSheet({20, 100});
    }
};

TEST_F(ScreenshotTest, TheDemoSheetInBothLanguages) {
    ASSERT_EQ(tmpl.SelectedArea, 1);
    EXPECT_FALSE(window.sheet()->grab().toImage().isNull());
    saveScreenshot(&window, QStringLiteral("demo-editor-ca.png"));
    window.editorActions().addPage->trigger();
    saveScreenshot(&window, QStringLiteral("demo-page-frame-ca.png"));
    switchLanguage(Language::Spanish);
    saveScreenshot(&window, QStringLiteral("demo-page-frame-es.png"));
    window.pageFrame()->hide();
    saveScreenshot(&window, QStringLiteral("demo-editor-es.png"));
}

} // namespace
} // namespace mervak::test
