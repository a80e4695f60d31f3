#pragma once

#include "platform/KeyStroke.h"
#include "platform/WindowSystem.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Keyboard.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11WindowSystem.h"
#include "support/Waiting.h"
#include "xharness/XSession.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace mervak::test {

// One stroke per character of `text`, without modifiers.
KeyStrokes charactersOf(const QString& text);

// A private X server, with openbox unless the test says otherwise, and the X11
// backends connected to it through $DISPLAY, as the program connects.
class X11TestFixture : public ::testing::Test {
protected:
    struct Terminal {
        WindowId window = kNoWindow;
        QString file;
        QProcess* process = nullptr;
    };

    void SetUp() override { startSession(true); }
    void startSession(bool windowManager);

    // Starts an xterm titled `title` whose keyboard input lands in a file.
    void openTerminal(const QString& title, Terminal* terminal);

    // Activates the terminal, types and waits for the flush.
    void typeInto(const Terminal& terminal, const KeyStrokes& strokes);

    // The file once it holds at least `size` bytes, or what it holds after 10 s.
    static QByteArray waitForContent(const QString& file, qsizetype size);

    std::unique_ptr<XSession> session_;
    QTemporaryDir folder_;
    std::unique_ptr<X11Connection> connection_;
    std::unique_ptr<X11WindowSystem> windows_;
    std::unique_ptr<X11Keyboard> keyboard_;
    std::unique_ptr<X11Pointer> pointer_;
};

// The same without a window manager.
class X11BareServerTest : public X11TestFixture {
protected:
    void SetUp() override { startSession(false); }
};

} // namespace mervak::test
