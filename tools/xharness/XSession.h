#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

namespace mervak::test {

// A private X server (Xvfb on a free display number) with, when asked, the openbox
// window manager, and the programs started on it. Everything it started is stopped
// when it goes, and also when this process dies.
class XSession {
public:
    XSession() = default;
    ~XSession();
    XSession(const XSession&) = delete;
    XSession& operator=(const XSession&) = delete;

    // The programs a session needs that are not installed, as a sentence; empty when
    // every one is there.
    static QString missingPrograms(bool windowManager);

    // Starts the server (and the window manager). False, with the reason, on failure.
    bool start(bool windowManager, QString* error);

    // ":N", the display to connect to.
    QString display() const { return display_; }

    // Starts `program` on the display, in the UTF-8 C locale. Nothing when it fails.
    QProcess* startProgram(const QString& program, const QStringList& arguments, QString* error);

    // An xterm titled `title` that writes every byte its keyboard sends to `file`,
    // unchanged: the terminal is raw and does not echo, Alt sends Escape first, and
    // Ctrl+V pastes the CLIPBOARD selection. `file` exists once input is raw.
    QProcess* startTerminal(const QString& title, const QString& file, QString* error);

    // Ends the X server at once, as a crash would.
    void killServer();

private:
    QProcess* launch(const QString& program, const QStringList& arguments, bool keepErrors);

    std::vector<std::unique_ptr<QProcess>> processes_; // the server first
    QString display_;
};

} // namespace mervak::test
