#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11WindowSystem.h"
#include "support/QtPrinters.h"
#include "support/TestFiles.h"
#include "support/XSession.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>
#include <memory>

namespace mervak {
namespace {

// Bounds for a step that never happens, not measures of speed.
constexpr int kGiveUpMs = 15000;
constexpr int kCliGiveUpMs = 30000;

struct CliRun {
    int exitCode = -1;
    QString errors;
};

// `mervak-cli action` typing for real into xterms on a private X display with
// openbox. Each xterm's input lands, byte for byte, in a file of its own.
class ActionCliE2e : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        const QString missing = test::XSession::missingPrograms(true);
        if (!missing.isEmpty()) {
            skipReason_ = missing;
            return;
        }
        session_ = std::make_unique<test::XSession>();
        QString error;
        if (!session_->start(true, &error)) {
            skipReason_ = error;
            return;
        }
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
    }

    // An xterm titled `title` whose input goes to a file as the program reads it: no
    // line editing, no echo; Alt sends Escape first, Ctrl+V pastes the CLIPBOARD.
    void openTerminal(const QString& title) {
        title_ = title;
        file_ = folder_.filePath(title + ".out");
        QString error;
        QProcess* xterm = session_->startProgram(
            "xterm",
            {"-T", title, "-geometry", "80x10+40+30", "-xrm", "XTerm*metaSendsEscape: true", "-xrm",
             "XTerm*VT100.translations: #override Ctrl<Key>v: insert-selection(CLIPBOARD)", "-e",
             "sh", "-c", "stty -icanon -echo min 1; exec cat > \"$0\"", file_},
            &error);
        ASSERT_NE(xterm, nullptr) << error;
        ASSERT_TRUE(waitUntil([this] { return QFile::exists(file_); })) << "no input file";
        ASSERT_TRUE(waitUntil([this] { return windows_->activate(windows_->findByTitle(title_)); }))
            << "no window titled " << title_ << " takes the focus";
    }

    // Runs `mervak-cli action TEXT --target <terminal> OPTIONS...`.
    CliRun runCli(const QString& text, const QStringList& options = {}) {
        QProcess cli;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DISPLAY", session_->display());
        environment.insert("LC_ALL", "C.UTF-8");
        cli.setProcessEnvironment(environment);
        cli.start(MERVAK_CLI, QStringList{"action", text, "--target", title_} + options);
        EXPECT_TRUE(cli.waitForFinished(kCliGiveUpMs)) << "mervak-cli never ended";
        return {cli.exitCode(), QString::fromUtf8(cli.readAllStandardError())};
    }

    // The terminal's file once it holds `expected` bytes (or after the give-up
    // bound), compared byte for byte.
    void expectTyped(const QByteArray& expected, const char* name) {
        waitUntil([&] { return test::readAll(file_).size() >= expected.size(); });
        EXPECT_EQ(test::readAll(file_), expected) << name;
    }

    static bool waitUntil(const std::function<bool()>& condition) {
        QElapsedTimer elapsed;
        elapsed.start();
        while (!condition()) {
            if (elapsed.elapsed() > kGiveUpMs)
                return false;
            QCoreApplication::processEvents();
            QThread::msleep(10);
        }
        return true;
    }

    static inline std::unique_ptr<test::XSession> session_;
    static inline std::unique_ptr<X11Connection> connection_;
    static inline std::unique_ptr<X11WindowSystem> windows_;
    static inline QString skipReason_;
    QTemporaryDir folder_;
    QString title_;
    QString file_;
};

struct TypingCase {
    const char* name;
    QString text;
    QStringList options;
    QByteArray typed;
};

TEST_F(ActionCliE2e, TypesAccentsAndSymbolsWhateverTheLayout) {
    openTerminal("accents");
    const QString text = QString::fromUtf8("àçñ l·l € ¿¡ ÀÇÑ ïü 1{+}1=2 {%}{^}{~}{(}{)}{{}{}} @#ß");
    const CliRun run = runCli(text);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    expectTyped("\xC3\xA0\xC3\xA7\xC3\xB1 l\xC2\xB7l \xE2\x82\xAC \xC2\xBF\xC2\xA1 "
                "\xC3\x80\xC3\x87\xC3\x91 \xC3\xAF\xC3\xBC 1+1=2 %^~(){} @#\xC3\x9F",
                "accents");
}

TEST_F(ActionCliE2e, TypesChordsAndNamedKeys) {
    const TypingCase cases[] = {
        {"chords",
         "^a+b%x{TAB}+(cd)",
         {},
         "\x01"
         "B\x1Bx\tCD"},
        {"enter in both spellings", "a{ENTER}b~{ENTER 2}", {}, "a\nb\n\n\n"},
        {"backspace reaches the program", "ab{BS}", {}, "ab\x7F"},
        {"keys with a pause between them",
         QString::fromUtf8("pàs{ENTER}"),
         {"--key-delay", "5"},
         "p\xC3\xA0s\n"},
    };
    for (const auto& c : cases) {
        openTerminal(QString("keys-") + QString::number(&c - cases));
        const CliRun run = runCli(c.text, c.options);
        EXPECT_EQ(run.exitCode, 0) << c.name << ": " << run.errors;
        expectTyped(c.typed, c.name);
    }
}

TEST_F(ActionCliE2e, RunsCommandsInOrderWithTheKeys) {
    QTemporaryDir files;
    test::writeAll(files.filePath("hola.txt"), QByteArray("Hola, m\xC3\xB3n!"));
    const TypingCase cases[] = {
        {"keys around a wait", "abc{|Espera 3}def{ENTER}", {}, "abcdef\n"},
        {"register typed after M+", "{|M+ 5}{|M+ 2}x{|RM }", {}, "x7"},
        {"text register grows", "{|M+ 5}{|RM }", {"--register", "abc"}, "abc5"},
        {"clipboard typed as keys",
         "<{|RCW }>",
         {"--clipboard", QString::fromUtf8("Adéu{ENTER}")},
         "<Ad\xC3\xA9u\n>"},
        // Last: the target fetches pasted content when it gets to it, so keys sent
        // after the paste may overtake it, as after the classic posted paste.
        {"text file pasted after keys",
         "[{|Enganxa hola.txt}",
         {"--folder", files.path()},
         "[Hola, m\xC3\xB3n!"},
    };
    for (const auto& c : cases) {
        openTerminal(QString("commands-") + QString::number(&c - cases));
        const CliRun run = runCli(c.text, c.options);
        EXPECT_EQ(run.exitCode, 0) << c.name << ": " << run.errors;
        expectTyped(c.typed, c.name);
    }
}

TEST_F(ActionCliE2e, MovesThePointerFromTheTargetsCorner) {
    openTerminal("mouse");
    const auto frame = windows_->rect(windows_->findByTitle(title_));
    ASSERT_TRUE(frame.has_value());
    X11Pointer pointer(*connection_);
    struct Case {
        const char* name;
        QString text;
        QPoint expected;
    };
    const Case cases[] = {
        {"corner", "{|Mouse M 0 0 }", {frame->left, frame->top}},
        {"inside", "{|Mouse M 30 40 }", {frame->left + 30, frame->top + 40}},
        {"relative steps", "{|Mouse M 30 40 D 10 A}", {frame->left + 40, frame->top + 35}},
    };
    for (const auto& c : cases) {
        const CliRun run = runCli(c.text);
        EXPECT_EQ(run.exitCode, 0) << c.name << ": " << run.errors;
        EXPECT_EQ(pointer.position(), c.expected) << c.name;
    }
}

TEST_F(ActionCliE2e, TypesNothingWithoutItsTarget) {
    openTerminal("lonely");
    struct Case {
        const char* name;
        QStringList arguments;
        int exitCode;
        const char* says;
    };
    const Case cases[] = {
        {"title of no window",
         {"action", "abc", "--target", "No such window"},
         1,
         "No hi ha cap finestra amb el títol \"No such window\""},
        {"bar sends nothing", {"action", "abc", "--target", "|"}, 0, ""},
        {"malformed notation", {"action", "ab{NOPE}", "--target", "lonely"}, 1, "{NOPE}"},
    };
    for (const auto& c : cases) {
        QProcess cli;
        cli.start(MERVAK_CLI, c.arguments);
        ASSERT_TRUE(cli.waitForFinished(kCliGiveUpMs)) << c.name;
        EXPECT_EQ(cli.exitCode(), c.exitCode) << c.name;
        EXPECT_TRUE(
            QString::fromUtf8(cli.readAllStandardError()).contains(QString::fromUtf8(c.says)))
            << c.name;
    }
    // Keys sent now arrive after anything the runs above might have typed.
    EXPECT_EQ(runCli("z").exitCode, 0);
    expectTyped("z", "only the last run typed");
}

TEST(ActionCli, NeedsADisplayToTypeForReal) {
    QProcess cli;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    cli.setProcessEnvironment(environment);
    cli.start(MERVAK_CLI, {"action", "abc"});
    ASSERT_TRUE(cli.waitForFinished(kCliGiveUpMs));
    EXPECT_EQ(cli.exitCode(), 1);
    EXPECT_TRUE(cli.readAllStandardError().contains("No es pot obrir la pantalla X"));
}

} // namespace
} // namespace mervak
