#include "app/VirtualTablet.h"

#include "app/MainWindow.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

// Its size and title on a first opening are checked on a real display
// (first_hour.sh); here, filling a screen and coming back to the window.
TEST(VirtualTablet, FillsAChosenScreenAndComesBack) {
    MainWindow window;
    window.show();
    VirtualTablet tablet;
    tablet.showAt(QRect(), window, {270, 190});
    const QRect windowed = tablet.place();
    tablet.setFullScreenOn(window.screen());
    EXPECT_TRUE(tablet.isFullScreen());
    EXPECT_TRUE(tablet.place() == windowed) << "the place kept is the window's";
    tablet.setFullScreenOn(nullptr);
    EXPECT_FALSE(tablet.isFullScreen());
    EXPECT_TRUE(tablet.place() == windowed);
}

} // namespace
} // namespace mervak
