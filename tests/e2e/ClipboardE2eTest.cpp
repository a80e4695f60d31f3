#include "X11TestFixture.h"
#include "support/TestFiles.h"

#include <QProcess>

namespace mervak::test {
namespace {

// A clipboard owner in another process, as the program will be for its target.
class ClipboardTest : public X11TestFixture {
protected:
    QProcess* runHelper(const QStringList& arguments) {
        QString error;
        QProcess* helper =
            session_->startProgram(QStringLiteral(MERVAK_CLIPBOARD_HELPER), arguments, &error);
        EXPECT_NE(helper, nullptr) << error.toStdString();
        return helper;
    }

    // Starts an owner and waits until it holds the clipboard.
    void own(const QStringList& arguments) {
        QProcess* owner = runHelper(arguments);
        ASSERT_NE(owner, nullptr);
        ASSERT_TRUE(waitFor([owner] { return owner->canReadLine(); }))
            << "the owner never got ready";
        EXPECT_EQ(owner->readLine(), QByteArray("ready\n"));
    }

    QByteArray query(const QString& mode) {
        QProcess* reader = runHelper({mode});
        if (reader == nullptr || !reader->waitForFinished(10000))
            return "(no answer)";
        return reader->readAllStandardOutput();
    }
};

// Text put on the clipboard by one process is read by another and pasted into a
// terminal with Ctrl+V, as ENGANXA does.
TEST_F(ClipboardTest, TextIsServedToOtherProgramsAndPastedWithCtrlV) {
    const QString text = QStringLiteral("Grüße, àéç € 你好 «cometes»");
    ASSERT_NO_FATAL_FAILURE(own({QStringLiteral("set-text"), text}));
    EXPECT_EQ(query(QStringLiteral("text")), text.toUtf8());

    Terminal terminal;
    ASSERT_NO_FATAL_FAILURE(openTerminal(QStringLiteral("Mervak paste"), &terminal));
    ASSERT_NO_FATAL_FAILURE(typeInto(terminal, {{Key::Character, U'v', {false, true, false}}}));
    const QByteArray expected = text.toUtf8();
    EXPECT_EQ(waitForContent(terminal.file, expected.size()), expected);
}

TEST_F(ClipboardTest, PicturesFromFilesAreOfferedAsImages) {
    ASSERT_NO_FATAL_FAILURE(
        own({QStringLiteral("set-picture"), dataPath(QStringLiteral("x11/picture.bmp"))}));
    const QByteArray formats = query(QStringLiteral("formats"));
    EXPECT_TRUE(formats.contains("image/png")) << formats.toStdString();

    const QString broken = folder_.filePath(QStringLiteral("broken.png"));
    writeAll(broken, "not a picture");
    QProcess* owner = runHelper({QStringLiteral("set-picture"), broken});
    ASSERT_NE(owner, nullptr);
    ASSERT_TRUE(owner->waitForFinished(10000));
    EXPECT_EQ(owner->exitCode(), 3) << "a file that is no picture is refused";
}

} // namespace
} // namespace mervak::test
