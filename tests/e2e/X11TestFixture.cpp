#include "X11TestFixture.h"

#include "support/TestFiles.h"

#include <QFileInfo>

namespace mervak::test {

KeyStrokes charactersOf(const QString& text) {
    KeyStrokes strokes;
    for (char32_t character : text.toUcs4())
        strokes.append({Key::Character, character, {}});
    return strokes;
}

void X11TestFixture::startSession(bool windowManager) {
    const QString missing = XSession::missingPrograms(windowManager);
    if (!missing.isEmpty())
        GTEST_SKIP() << "No real X session for this test: " << missing.toStdString();
    ASSERT_TRUE(folder_.isValid());
    session_ = std::make_unique<XSession>();
    QString error;
    ASSERT_TRUE(session_->start(windowManager, &error)) << error.toStdString();
    qputenv("DISPLAY", session_->display().toLocal8Bit());
    connection_ = std::make_unique<X11Connection>();
    ASSERT_TRUE(connection_->isOpen()) << connection_->displayName().toStdString();
    windows_ = std::make_unique<X11WindowSystem>(*connection_);
    keyboard_ = std::make_unique<X11Keyboard>(*connection_);
    pointer_ = std::make_unique<X11Pointer>(*connection_);
    EXPECT_EQ(windows_->windowManagerRuns(), windowManager);
}

void X11TestFixture::openTerminal(const QString& title, Terminal* terminal) {
    terminal->file = folder_.filePath(title + QStringLiteral(".txt"));
    QString error;
    terminal->process = session_->startTerminal(title, terminal->file, &error);
    ASSERT_NE(terminal->process, nullptr) << error.toStdString();
    // A window manager focuses and raises a new window: wait for that too, so it
    // cannot happen in the middle of a test.
    const bool managed = windows_->windowManagerRuns();
    ASSERT_TRUE(waitFor([&] {
        terminal->window = windows_->findByTitle(title);
        return windows_->title(terminal->window) == title && QFileInfo::exists(terminal->file) &&
               (!managed || windows_->activeWindow() == terminal->window);
    })) << "the terminal \""
        << title.toStdString() << "\" did not show up";
}

void X11TestFixture::typeInto(const Terminal& terminal, const KeyStrokes& strokes) {
    ASSERT_TRUE(windows_->activate(terminal.window));
    ASSERT_EQ(keyboard_->type(strokes), std::nullopt);
    bool flushed = false;
    keyboard_->flush([&flushed] { flushed = true; });
    ASSERT_TRUE(waitFor([&flushed] { return flushed; })) << "the flush never ended";
}

QByteArray X11TestFixture::waitForContent(const QString& file, qsizetype size) {
    QByteArray content;
    waitFor([&] {
        content = readAll(file);
        return content.size() >= size;
    });
    return content;
}

} // namespace mervak::test
