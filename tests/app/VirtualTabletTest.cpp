#include "app/VirtualTablet.h"

#include "app/MainWindow.h"

#include <QApplication>
#include <QScreen>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// Opened for the first time, the tablet is a third of the screen wide at least
// and has the sheet's shape; it names its Template and fills a screen on request.
TEST(VirtualTablet, OpensUsableNamedAndFillsAChosenScreen) {
    MainWindow window;
    window.resize(700, 500);
    window.show();
    VirtualTablet tablet;
    const QRect screen = window.screen()->availableGeometry();
    for (const QSizeF sheet : {QSizeF(270, 190), QSizeF(190, 270)}) {
        tablet.showAt(QRect(), window, sheet);
        const QSize size = tablet.size();
        EXPECT_NEAR(double(size.width()) / size.height(), sheet.width() / sheet.height(), 0.02)
            << sheet.width();
        EXPECT_TRUE(size.width() >= screen.width() / 3 || size.height() >= screen.height() - 80)
            << size.width() << "x" << size.height() << " on " << screen.width();
        EXPECT_TRUE(screen.contains(tablet.geometry())) << tablet.geometry().topLeft();
        tablet.hide();
    }
    tablet.setTemplateName(QStringLiteral("animals"), Language::Spanish);
    EXPECT_EQ(tablet.windowTitle(), QStringLiteral("Tableta virtual - animals"));

    tablet.showAt(QRect(), window, {270, 190});
    const QRect windowed = tablet.place();
    tablet.setFullScreenOn(window.screen());
    EXPECT_TRUE(tablet.isFullScreen());
    EXPECT_TRUE(tablet.place() == windowed) << "the place kept is the window's";
    tablet.setFullScreenOn(nullptr);
    EXPECT_FALSE(tablet.isFullScreen());
}

} // namespace
} // namespace mervak
