#include "xharness/XSession.h"

#include <QElapsedTimer>
#include <QStandardPaths>
#include <QThread>
#include <X11/Xlib.h>
#include <csignal>
#include <sys/prctl.h>

namespace mervak::test {

namespace {

constexpr int kStartTimeoutMs = 10000;

// Openbox names itself early, and a window mapped while it is still starting may be
// managed only 5 s later, or never. It is ready once it frames a window of ours.
bool framesAWindow(Display* connection) {
    const Window root = DefaultRootWindow(connection);
    const Window window = XCreateSimpleWindow(connection, root, 0, 0, 10, 10, 0, 0, 0);
    XMapWindow(connection, window);
    XSync(connection, False);
    QElapsedTimer elapsed;
    elapsed.start();
    bool framed = false;
    while (!framed && elapsed.elapsed() < 1000) {
        QThread::msleep(5);
        Window parent = 0;
        Window* children = nullptr;
        unsigned count = 0;
        Window treeRoot = 0;
        if (XQueryTree(connection, window, &treeRoot, &parent, &children, &count) && children) {
            XFree(children);
        }
        framed = parent != 0 && parent != root;
    }
    XDestroyWindow(connection, window);
    XSync(connection, False);
    return framed;
}

bool waitForWindowManager(const QString& display) {
    Display* connection = XOpenDisplay(display.toLocal8Bit().constData());
    if (connection == nullptr) {
        return false;
    }
    QElapsedTimer elapsed;
    elapsed.start();
    bool ready = false;
    while (!ready && elapsed.elapsed() < kStartTimeoutMs) {
        ready = framesAWindow(connection);
    }
    XCloseDisplay(connection);
    return ready;
}

} // namespace

XSession::~XSession() {
    // The server last, so its clients do not complain of a lost display.
    for (auto process = processes_.rbegin(); process != processes_.rend(); ++process) {
        (*process)->terminate();
        if (!(*process)->waitForFinished(2000)) {
            (*process)->kill();
            (*process)->waitForFinished(2000);
        }
    }
}

QString XSession::missingPrograms(bool windowManager) {
    QStringList needed = {QStringLiteral("Xvfb"), QStringLiteral("xterm")};
    if (windowManager) {
        needed << QStringLiteral("openbox");
    }
    QStringList missing;
    for (const QString& program : needed) {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            missing << program;
        }
    }
    return missing.isEmpty()
               ? QString()
               : QStringLiteral("not installed: ") + missing.join(QStringLiteral(", "));
}

QProcess* XSession::launch(const QString& program, const QStringList& arguments, bool keepErrors) {
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!display_.isEmpty()) {
        environment.insert(QStringLiteral("DISPLAY"), display_);
    }
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    process->setProcessEnvironment(environment);
    // Children die with this process, even when it is killed.
    process->setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    if (!keepErrors) {
        process->setStandardErrorFile(QProcess::nullDevice());
    }
    process->start(program, arguments);
    processes_.push_back(std::move(process));
    return processes_.back().get();
}

bool XSession::start(bool windowManager, QString* error) {
    // -displayfd picks a free display number and writes it to our pipe when ready.
    QProcess* server =
        launch(QStringLiteral("Xvfb"),
               {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
                QStringLiteral("tcp")},
               true);
    while (!server->canReadLine() && server->waitForReadyRead(kStartTimeoutMs)) {
    }
    const QByteArray number = server->readLine().trimmed();
    if (number.isEmpty()) {
        *error = QStringLiteral("Xvfb did not start: ") +
                 QString::fromLocal8Bit(server->readAllStandardError());
        return false;
    }
    display_ = QStringLiteral(":") + QString::fromLatin1(number);
    if (!windowManager) {
        return true;
    }
    if (!startProgram(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")}, error)) {
        return false;
    }
    if (!waitForWindowManager(display_)) {
        *error = QStringLiteral("openbox did not take over the display");
        return false;
    }
    return true;
}

QProcess* XSession::startProgram(const QString& program, const QStringList& arguments,
                                 QString* error) {
    QProcess* process = launch(program, arguments, false);
    if (!process->waitForStarted(kStartTimeoutMs)) {
        *error = program + QStringLiteral(" did not start: ") + process->errorString();
        return nullptr;
    }
    return process;
}

QProcess* XSession::startTerminal(const QString& title, const QString& file, QString* error) {
    return startProgram(QStringLiteral("xterm"),
                        {QStringLiteral("-T"), title, QStringLiteral("-geometry"),
                         QStringLiteral("80x10"), QStringLiteral("-xrm"),
                         QStringLiteral("XTerm*metaSendsEscape: true"), QStringLiteral("-xrm"),
                         QStringLiteral("XTerm*VT100.translations: #override Ctrl<Key>v: "
                                        "insert-selection(CLIPBOARD)"),
                         QStringLiteral("-e"), QStringLiteral("sh"), QStringLiteral("-c"),
                         QStringLiteral("stty raw -echo; exec cat > \"$0\""), file},
                        error);
}

void XSession::killServer() {
    if (!processes_.empty()) {
        processes_.front()->kill();
        processes_.front()->waitForFinished(2000);
    }
}

} // namespace mervak::test
