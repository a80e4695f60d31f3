#include "X11TestFixture.h"
#include "platform/x11/X11TopKeeper.h"

#include <X11/Xlib.h>

namespace mervak::test {
namespace {

// Exact titles win over prefixes; the topmost of two alike wins; the window found for
// a whole title is remembered until that title changes.
TEST_F(X11TestFixture, FindsWindowsByExactTitleElseByPrefixFromTheTop) {
    Terminal longer;
    Terminal shorter;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak target one"), &longer));
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak target"), &shorter));
    // The manager restacks a moment after it hands over the focus.
    const auto topmostOfTwo = [this] {
        return windows_->findByTitle(QStringLiteral("MERVAK TAR"));
    };
    ASSERT_TRUE(windows_->activate(longer.window));
    ASSERT_TRUE(waitFor([&] { return topmostOfTwo() == longer.window; }));
    EXPECT_EQ(windows_->findByTitle(QStringLiteral("Mervak target")), shorter.window);
    ASSERT_TRUE(windows_->activate(shorter.window));
    EXPECT_TRUE(waitFor([&] { return topmostOfTwo() == shorter.window; }))
        << "the window raised last is found first";

    Display* display = connection_->display();
    XStoreName(display, shorter.window, "Mervak renamed");
    XDeleteProperty(display, shorter.window, XInternAtom(display, "_NET_WM_NAME", False));
    EXPECT_EQ(windows_->findByTitle(QStringLiteral("Mervak target")), longer.window);
}

// Activation moves the keyboard focus: each terminal gets only what was typed while
// it was active. The frame lies on the screen.
TEST_F(X11TestFixture, ActivationSwitchesTheKeyboardFocus) {
    Terminal first;
    Terminal second;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak first"), &first));
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak second"), &second));
    const QString texts[] = {QStringLiteral("one "), QStringLiteral("two "),
                             QStringLiteral("three "), QStringLiteral("four")};
    for (int i = 0; i < 4; ++i) {
        const Terminal& target = i % 2 == 0 ? first : second;
        ASSERT_NO_FATAL_FAILURE(typeInto(target, charactersOf(texts[i])));
        EXPECT_EQ(windows_->activeWindow(), target.window) << i;
    }
    EXPECT_EQ(waitForContent(first.file, 10), QByteArray("one three "));
    EXPECT_EQ(waitForContent(second.file, 8), QByteArray("two four"));
    EXPECT_EQ(windows_->screenSize(), QSize(1280, 1024));
    const std::optional<WindowRect> rect = windows_->rect(first.window);
    ASSERT_TRUE(rect.has_value());
    EXPECT_GE(rect->left, 0);
    EXPECT_GT(rect->right - rect->left, 100);
    EXPECT_LE(rect->bottom, 1024);
}

// A window id that went stale (or never was) answers as missing; the process lives on
// and keeps typing into the windows that remain.
TEST_F(X11TestFixture, StaleWindowIdsAnswerAsMissingWithoutKillingTheProcess) {
    Terminal doomed;
    Terminal survivor;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak doomed"), &doomed));
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak survivor"), &survivor));
    doomed.process->kill();
    ASSERT_TRUE(waitFor(
        [&] { return windows_->findByTitle(QStringLiteral("Mervak doomed")) == kNoWindow; }));
    for (WindowId id : {doomed.window, WindowId(0x7ffffffe), WindowId(0xffffffffffffULL)}) {
        EXPECT_FALSE(windows_->activate(id)) << id;
        EXPECT_EQ(windows_->title(id), QString()) << id;
        EXPECT_FALSE(windows_->rect(id).has_value()) << id;
    }
    ASSERT_NO_FATAL_FAILURE(typeInto(survivor, charactersOf(QStringLiteral("alive"))));
    EXPECT_EQ(waitForContent(survivor.file, 5), QByteArray("alive"));
}

// Without a window manager the windows are found by walking the tree, and the focus
// is set directly.
TEST_F(X11BareServerTest, FindsAndActivatesWindowsWithoutAWindowManager) {
    Terminal first;
    Terminal second;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Bare first"), &first));
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Bare second"), &second));
    EXPECT_EQ(windows_->findByTitle(QStringLiteral("bare f")), first.window);
    ASSERT_NO_FATAL_FAILURE(typeInto(first, charactersOf(QStringLiteral("a"))));
    EXPECT_EQ(windows_->activeWindow(), first.window);
    ASSERT_NO_FATAL_FAILURE(typeInto(second, charactersOf(QStringLiteral("b"))));
    EXPECT_EQ(windows_->activeWindow(), second.window);
    ASSERT_NO_FATAL_FAILURE(typeInto(first, charactersOf(QStringLiteral("c"))));
    EXPECT_EQ(waitForContent(first.file, 2), QByteArray("ac"));
    EXPECT_EQ(waitForContent(second.file, 1), QByteArray("b"));
}

// A server that dies is reported in words; nothing crashes and waits still end.
TEST_F(X11TestFixture, ALostDisplayIsReportedNotFatal) {
    session_->killServer();
    EXPECT_EQ(keyboard_->type(charactersOf(QStringLiteral("x"))),
              (TypingError{TypingError::Reason::DisplayLost, {}, {}}));
    EXPECT_FALSE(connection_->isOpen());
    EXPECT_EQ(windows_->findByTitle(QStringLiteral("anything")), kNoWindow);
    EXPECT_EQ(pointer_->position(), QPoint());
    pointer_->send(PointerFlag::Move | PointerFlag::Absolute, 100, 100);
    bool flushed = false;
    keyboard_->flush([&flushed] { flushed = true; });
    EXPECT_TRUE(waitFor([&flushed] { return flushed; }));
}

// The kept window goes back on top whenever another is mapped or raised over it,
// and stays where it is once no longer kept.
TEST_F(X11BareServerTest, TheKeptWindowGoesBackOnTop) {
    Display* display = connection_->display();
    const Window root = DefaultRootWindow(display);
    const auto newWindow = [&] {
        const Window window = XCreateSimpleWindow(display, root, 0, 0, 50, 50, 0, 0, 0);
        XMapWindow(display, window);
        XFlush(display);
        return window;
    };
    const auto topmost = [&] {
        Window unusedRoot = 0;
        Window unusedParent = 0;
        Window* children = nullptr;
        unsigned int count = 0;
        XQueryTree(display, root, &unusedRoot, &unusedParent, &children, &count);
        const Window top = count > 0 ? children[count - 1] : 0;
        XFree(children);
        return top;
    };
    const Window kept = newWindow();
    X11TopKeeper keeper;
    keeper.keep(kept);
    const Window mapped = newWindow();
    EXPECT_TRUE(waitFor([&] { return topmost() == kept; })) << "after a new window";
    XRaiseWindow(display, mapped);
    XFlush(display);
    EXPECT_TRUE(waitFor([&] { return topmost() == kept; })) << "after a raise";
    keeper.keep(0);
    XRaiseWindow(display, mapped);
    XFlush(display);
    EXPECT_TRUE(waitFor([&] { return topmost() == mapped; }));
}

} // namespace
} // namespace mervak::test
