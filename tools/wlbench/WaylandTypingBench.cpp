// Measures typing on a running wlroots compositor (sway) into a terminal that
// writes what it receives to a file: Mervak's Wayland keyboard against wtype, the
// tool users know, on the same compositor and the same window, accented text.
// Reports characters per second, from the first key sent to the last character in
// the file, and characters lost. scripts/wayland-bench.sh sets the scene up.
// Usage: mervak-wayland-bench --target TITLE --file PATH [--chars N] [--runs N]
//        [--no-wtype]
#include "platform/wayland/SwayWindowSystem.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandKeyboard.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

using namespace mervak;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kTimeoutMs = 60000;
const QString kAccented = QStringLiteral("àéíòúç ñ€·¿ ÀÉÇÑ ïü ");

QString benchText(int characters) {
    QString text;
    while (text.size() < characters)
        text += kAccented;
    return text.left(characters);
}

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Runs the event loop until the file holds `size` bytes or more; false on timeout.
bool waitForSize(const QString& path, qint64 size) {
    const auto deadline = Clock::now() + std::chrono::milliseconds(kTimeoutMs);
    while (QFile(path).size() < size) {
        if (Clock::now() > deadline)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }
    return true;
}

struct Run {
    double charactersPerSecond = 0;
    qsizetype lost = 0;
};

// How many characters of `text` are missing from what arrived after `before`.
qsizetype lostCharacters(const QString& text, const QByteArray& arrived) {
    const QString got = QString::fromUtf8(arrived);
    qsizetype matching = 0;
    for (qsizetype i = 0; i < std::min(got.size(), text.size()); ++i)
        matching += got[i] == text[i] ? 1 : 0;
    return text.size() - matching;
}

Run measure(const QString& path, const QString& text, const std::function<void()>& type) {
    const qint64 start = QFile(path).size();
    const qint64 expected = text.toUtf8().size();
    const auto began = Clock::now();
    type();
    waitForSize(path, start + expected);
    const double seconds = std::chrono::duration<double>(Clock::now() - began).count();
    // Anything late or doubled would come now.
    QCoreApplication::processEvents(QEventLoop::AllEvents, 200);
    const QByteArray arrived = contents(path).mid(start);
    return {static_cast<double>(text.size()) / seconds, lostCharacters(text, arrived)};
}

KeyStrokes strokesOf(const QString& text) {
    KeyStrokes strokes;
    for (const char32_t character : text.toUcs4())
        strokes.append({Key::Character, character, {}});
    return strokes;
}

void report(const char* who, int characters, const std::vector<Run>& runs) {
    std::vector<double> speeds;
    qsizetype lost = 0;
    for (const Run& run : runs) {
        speeds.push_back(run.charactersPerSecond);
        lost += run.lost;
    }
    std::sort(speeds.begin(), speeds.end());
    std::printf("%-7s %6d accented chars x %zu runs: median %8.0f chars/s (min %.0f, max %.0f), "
                "lost %lld\n",
                who, characters, runs.size(), speeds[speeds.size() / 2], speeds.front(),
                speeds.back(), static_cast<long long>(lost));
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption target(QStringLiteral("target"), QString(), QStringLiteral("title"));
    const QCommandLineOption file(QStringLiteral("file"), QString(), QStringLiteral("path"));
    const QCommandLineOption chars(QStringLiteral("chars"), QString(), QStringLiteral("n"),
                                   QStringLiteral("2000"));
    const QCommandLineOption runs(QStringLiteral("runs"), QString(), QStringLiteral("n"),
                                  QStringLiteral("5"));
    const QCommandLineOption noWtype(QStringLiteral("no-wtype"), QString());
    parser.addOptions({target, file, chars, runs, noWtype});
    parser.process(app);
    const QString path = parser.value(file);
    const int characters = std::max(1, parser.value(chars).toInt());
    const int runCount = std::max(1, parser.value(runs).toInt());

    WaylandConnection connection;
    SwayWindowSystem windows;
    WaylandKeyboard keyboard(connection);
    const WindowId window = windows.findByTitle(parser.value(target));
    if (!keyboard.available() || window == kNoWindow || !windows.activate(window)) {
        std::fprintf(stderr, "no virtual keyboard, or no window titled \"%s\"\n",
                     qPrintable(parser.value(target)));
        return 1;
    }
    // The keyboard's first key waits for the clients to see the new keyboard.
    const QString warmUp = QStringLiteral("·");
    measure(path, warmUp, [&] { keyboard.type(strokesOf(warmUp)); });

    const QString text = benchText(characters);
    std::vector<Run> ours;
    for (int run = 0; run < runCount; ++run)
        ours.push_back(measure(path, text, [&] { keyboard.type(strokesOf(text)); }));
    report("mervak", characters, ours);

    if (parser.isSet(noWtype))
        return 0;
    std::vector<Run> theirs;
    for (int run = 0; run < runCount; ++run)
        theirs.push_back(
            measure(path, text, [&] { QProcess::startDetached(QStringLiteral("wtype"), {text}); }));
    report("wtype", characters, theirs);
    return 0;
}
