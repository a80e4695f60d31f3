#include "app/VirtualTablet.h"

#include "app/MainWindow.h"
#include "app/WindowGrip.h"

#include <QSignalSpy>
#include <QTest>
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

// Framing itself, the tablet is moved by its bar and resized by its corner, never
// below a usable size, and its place is told once it settles.
TEST(VirtualTablet, ItsOwnFrameMovesAndResizesIt) {
    MainWindow window;
    window.show();
    const QRect start(100, 100, 300, 200);
    const struct {
        int grip; // 0: the bar, 1: the corner
        QPoint drag;
        QRect expected;
    } cases[] = {
        {0, {30, -20}, start.translated(30, -20)},
        {1, {40, 25}, start.adjusted(0, 0, 40, 25)},
        {1, {-1000, -1000}, QRect()}, // the smallest size

    };
    for (const auto& c : cases) {
        VirtualTablet tablet(VirtualTablet::Frame::Own);
        tablet.showAt(start, window, {});
        ASSERT_TRUE(tablet.place() == start);
        QSignalSpy chosen(&tablet, &VirtualTablet::placeChosen);
        WindowGrip* grip = tablet.findChildren<WindowGrip*>().at(c.grip);
        const QPoint at(5, 5);
        QTest::mousePress(grip, Qt::LeftButton, {}, at);
        QTest::mouseMove(grip, at + c.drag);
        QTest::mouseRelease(grip, Qt::LeftButton, {}, at + c.drag);
        const QSize smallest = QSize(120, 90).expandedTo(tablet.minimumSizeHint());
        EXPECT_EQ(tablet.place(),
                  c.expected.isNull() ? QRect(start.topLeft(), smallest) : c.expected)
            << c.grip;
        EXPECT_TRUE(chosen.wait(2000));
    }
}

} // namespace
} // namespace mervak
