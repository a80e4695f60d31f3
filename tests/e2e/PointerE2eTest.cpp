#include "X11TestFixture.h"
#include "xharness/XEventProbe.h"

#include <X11/Xlib.h>
#include <cmath>

namespace mervak::test {
namespace {

// The classic conversion to absolute coordinates, rounding halves to even.
int absoluteFrom(int pixel, int extent) {
    return static_cast<int>(std::nearbyint(pixel * 65535.0 / extent));
}

void moveTo(PointerOutput& pointer, QPoint target, QSize screen, unsigned buttons = 0) {
    pointer.send(PointerFlag::Move | PointerFlag::Absolute | buttons,
                 absoluteFrom(target.x(), screen.width()),
                 absoluteFrom(target.y(), screen.height()));
}

TEST_F(X11TestFixture, AbsoluteMovesLandOnThePixelAsked) {
    const QSize screen = windows_->screenSize();
    const QPoint targets[] = {{0, 0}, {1279, 1023}, {333, 777}};
    for (QPoint target : targets) {
        moveTo(*pointer_, target, screen);
        EXPECT_EQ(pointer_->position(), target) << target.x() << "," << target.y();
    }
    moveTo(*pointer_, {640, 512}, screen);
    pointer_->send(PointerFlag::Move, 5, -3);
    EXPECT_EQ(pointer_->position(), QPoint(645, 509))
        << "without the absolute flag a move is relative";
}

// Buttons follow the move, in the order the flags name them.
TEST_F(X11TestFixture, ButtonEventsReachTheWindowUnderThePointer) {
    XEventProbe probe(session_->display(), QStringLiteral("Mervak probe"), {200, 200, 400, 300});
    ASSERT_TRUE(probe.isOpen());
    ASSERT_TRUE(waitFor(
        [&] { return windows_->findByTitle(QStringLiteral("Mervak probe")) != kNoWindow; }));
    ASSERT_TRUE(windows_->activate(probe.window()));
    const QSize screen = windows_->screenSize();
    const std::optional<WindowRect> frame = windows_->rect(probe.window());
    ASSERT_TRUE(frame.has_value());
    const QPoint inside((frame->left + frame->right) / 2, (frame->top + frame->bottom) / 2);

    struct Expected {
        int type;
        unsigned button;
    };
    struct Case {
        const char* name;
        unsigned flags;
        std::vector<Expected> events;
    };
    const Case cases[] = {
        {"left click",
         PointerFlag::LeftDown | PointerFlag::LeftUp,
         {{ButtonPress, 1}, {ButtonRelease, 1}}},
        {"right click",
         PointerFlag::RightDown | PointerFlag::RightUp,
         {{ButtonPress, 3}, {ButtonRelease, 3}}},
        {"left down then right up",
         PointerFlag::LeftDown | PointerFlag::RightUp,
         {{ButtonPress, 1}}},
    };
    int step = 0;
    for (const Case& c : cases) {
        const QPoint target = inside + QPoint(step, step);
        ++step;
        moveTo(*pointer_, target, screen, c.flags);
        for (const Expected& expected : c.events) {
            const std::optional<XEventProbe::Event> event = probe.next(5000);
            ASSERT_TRUE(event.has_value()) << c.name;
            EXPECT_EQ(event->type, expected.type) << c.name;
            EXPECT_EQ(event->detail, expected.button) << c.name;
            EXPECT_EQ(QPoint(event->rootX, event->rootY), target) << c.name;
        }
    }
    pointer_->send(PointerFlag::LeftUp | PointerFlag::Absolute, 0, 0);
    const std::optional<XEventProbe::Event> release = probe.next(5000);
    ASSERT_TRUE(release.has_value());
    EXPECT_EQ(release->type, ButtonRelease);
    EXPECT_EQ(QPoint(release->rootX, release->rootY), inside + QPoint(2, 2))
        << "without the move flag the pointer stays";
}

} // namespace
} // namespace mervak::test
