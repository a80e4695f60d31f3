#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11WindowSystem.h"
#include "support/CliRun.h"
#include "support/QtPrinters.h"
#include "support/TestFiles.h"
#include "support/Waiting.h"
#include "support/XSession.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace mervak {
namespace {

constexpr int kGiveUpMs = 15000; // a bound for a step that never happens

// `mervak-cli action` typing for real into an xterm on a private X display with
// openbox. Each test has its xterm, titled with the test's name, whose input
// lands byte for byte in a file.
class ActionCliE2e : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        skipReason_ = test::XSession::missingPrograms(true);
        if (!skipReason_.isEmpty())
            return;
        session_ = std::make_unique<test::XSession>();
        if (!session_->start(true, &skipReason_))
            return;
        qputenv("DISPLAY", session_->display().toLocal8Bit());
        connection_ = std::make_unique<X11Connection>(session_->display());
        windows_ = std::make_unique<X11WindowSystem>(*connection_);
    }

    static void TearDownTestSuite() {
        windows_.reset();
        connection_.reset();
        session_.reset();
    }

    void SetUp() override {
        if (!skipReason_.isEmpty())
            GTEST_SKIP() << skipReason_.toStdString();
        ASSERT_TRUE(connection_->isOpen()) << connection_->displayName();
        title_ = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        file_ = folder_.filePath("typed.out");
        QString error;
        ASSERT_NE(session_->startTerminal(title_, file_, &error), nullptr) << error;
        ASSERT_TRUE(test::waitFor([this] { return QFile::exists(file_); }, kGiveUpMs));
        ASSERT_TRUE(test::waitFor(
            [this] { return windows_->activate(windows_->findByTitle(title_)); }, kGiveUpMs))
            << "the terminal never takes the focus";
    }

    test::CliRun runCli(const QString& text, const QStringList& options = {}) {
        return test::runProgram(
            MERVAK_CLI, QStringList{"action", text, "--target", title_} + options, {}, "C.UTF-8");
    }

    static inline std::unique_ptr<test::XSession> session_;
    static inline std::unique_ptr<X11Connection> connection_;
    static inline std::unique_ptr<X11WindowSystem> windows_;
    static inline QString skipReason_;
    QTemporaryDir folder_;
    QString title_; // the test's name
    QString file_;
};

// The pasted file comes last: the target fetches pasted content when it gets to
// it, so keys sent after the paste may overtake it, as after the classic posted paste.
TEST_F(ActionCliE2e, TypesKeysAndCommandsWhateverTheLayout) {
    test::writeAll(folder_.filePath("hola.txt"), QByteArray("Hola, m\xC3\xB3n!"));
    const test::CliRun run = runCli(
        QString::fromUtf8("àçñ l·l € ¿¡ ÀÇÑ ïü 1{+}1=2 {%}{^}{~}{(}{)}{{}{}} @#ß"
                          "^a+b%x{TAB}+(cd){ENTER}~{BS}{|Espera 3}{|RCW }[{|Enganxa hola.txt}"),
        {"--key-delay", "5", "--folder", folder_.path(), "--clipboard", "z"});
    EXPECT_EQ(run.status, 0) << run.err;
    const QByteArray expected = "\xC3\xA0\xC3\xA7\xC3\xB1 l\xC2\xB7l \xE2\x82\xAC \xC2\xBF\xC2\xA1 "
                                "\xC3\x80\xC3\x87\xC3\x91 \xC3\xAF\xC3\xBC 1+1=2 %^~(){} @#\xC3\x9F"
                                "\x01"
                                "B\x1Bx\tCD\r\r\x7Fz[Hola, m\xC3\xB3n!";
    test::waitFor([&] { return test::readAll(file_).size() >= expected.size(); }, kGiveUpMs);
    EXPECT_EQ(test::readAll(file_), expected);
    EXPECT_EQ(runCli("x{NOPE}").status, 1) << "a problem fails the run";
}

TEST_F(ActionCliE2e, MovesThePointerFromTheTargetsCorner) {
    const auto frame = windows_->rect(windows_->findByTitle(title_));
    ASSERT_TRUE(frame.has_value());
    const test::CliRun run = runCli("{|Mouse M 30 40 D 10 A}");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(X11Pointer(*connection_).position(), QPoint(frame->left + 40, frame->top + 35));
}

TEST(ActionCli, NeedsADisplayToTypeForReal) {
    const QByteArray display = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    const test::CliRun run = test::runProgram(MERVAK_CLI, {"action", "abc"});
    qputenv("DISPLAY", display);
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.contains("No es pot obrir la pantalla X")) << run.err;
}

} // namespace
} // namespace mervak
