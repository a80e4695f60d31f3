// Measures the X11 keyboard against real X clients on a private Xvfb with openbox:
//  - latency from type() to the KeyPress read by a client of our own,
//  - plain and accented characters per second into xterm, and characters lost,
//  - how long xterm needs, after flush() has synchronised with the server, to have
//    handled every key (what X11Keyboard::kFlushSettleMs must cover).
// Usage: mervak-xbench [--chars N] [--samples N]
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Keyboard.h"
#include "platform/x11/X11WindowSystem.h"
#include "xharness/XEventProbe.h"
#include "xharness/XSession.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <X11/Xlib.h>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

using namespace mervak;
using Clock = std::chrono::steady_clock;

namespace {

double millisecondsBetween(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double, std::milli>(to - from).count();
}

double percentile(std::vector<double> values, double fraction) {
    if (values.empty()) {
        return 0;
    }
    std::sort(values.begin(), values.end());
    const auto index = static_cast<std::size_t>(fraction * static_cast<double>(values.size() - 1));
    return values[index];
}

KeyStrokes strokesOf(const QString& text) {
    KeyStrokes strokes;
    for (char32_t character : text.toUcs4()) {
        strokes.append({Key::Character, character, {}});
    }
    return strokes;
}

// Runs the event loop until `condition` holds; false after `timeoutMs`.
bool spinUntil(const std::function<bool()>& condition, int timeoutMs) {
    const auto deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
    while (!condition()) {
        if (Clock::now() > deadline) {
            return false;
        }
        QCoreApplication::processEvents();
    }
    return true;
}

// Lets timers run (a keymap change settling, delayed keys) for `milliseconds`.
void spinFor(int milliseconds) {
    spinUntil([] { return false; }, milliseconds);
}

struct Bench {
    test::XSession session;
    QTemporaryDir folder;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11WindowSystem> windows;
    std::unique_ptr<X11Keyboard> keyboard;

    bool type(const QString& text) {
        if (const std::optional<TypingError> error = keyboard->type(strokesOf(text))) {
            std::fprintf(stderr, "typing failed: reason %d %s\n", static_cast<int>(error->reason),
                         qPrintable(error->detail));
            return false;
        }
        return true;
    }
};

void measureLatency(Bench& bench, int samples) {
    test::XEventProbe probe(bench.session.display(), QStringLiteral("Latency probe"),
                            {100, 100, 300, 200});
    if (!spinUntil([&] { return bench.windows->activate(probe.window()); }, 10000)) {
        std::fprintf(stderr, "the probe window never took the focus\n");
        return;
    }
    struct Row {
        const char* name;
        QString characters;
    };
    const Row rows[] = {{"plain", QStringLiteral("abcdefghij")},
                        {"accented, mapped", QStringLiteral("àéíòúçñ€ŀΩ")}};
    for (const Row& row : rows) {
        bench.type(row.characters); // maps what is missing, outside the timing
        spinFor(200);
        while (probe.next(50)) {
        }
        std::vector<double> latencies;
        for (int i = 0; i < samples; ++i) {
            const QString one = row.characters.mid(i % row.characters.size(), 1);
            const Clock::time_point start = Clock::now();
            bench.type(one);
            std::optional<test::XEventProbe::Event> event;
            do {
                event = probe.next(1000);
            } while (event && event->type != KeyPress);
            if (!event) {
                std::fprintf(stderr, "a KeyPress never arrived\n");
                return;
            }
            latencies.push_back(millisecondsBetween(start, event->receivedAt));
            while (probe.next(0)) {
            }
        }
        std::printf("latency %-17s type() to client KeyPress: p50 %.3f ms, p99 %.3f ms, max "
                    "%.3f ms (%d samples)\n",
                    row.name, percentile(latencies, 0.5), percentile(latencies, 0.99),
                    percentile(latencies, 1.0), samples);
    }
}

struct Terminal {
    QString file;
    qint64 size() const { return QFileInfo(file).size(); }
};

bool openTerminal(Bench& bench, const QString& title, Terminal* terminal) {
    terminal->file = bench.folder.filePath(title + QStringLiteral(".txt"));
    QString error;
    if (bench.session.startTerminal(title, terminal->file, &error) == nullptr) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return false;
    }
    WindowId window = kNoWindow;
    const bool shown = spinUntil(
        [&] {
            window = bench.windows->findByTitle(title);
            return window != kNoWindow && QFileInfo::exists(terminal->file) &&
                   bench.windows->activeWindow() == window;
        },
        10000);
    return shown && bench.windows->activate(window);
}

// Types `text` into the terminal and reports characters per second until the
// terminal has passed every byte on, and how many characters went astray.
void measureThroughput(Bench& bench, Terminal& terminal, const char* name, const QString& text) {
    const QByteArray expected = text.toUtf8();
    const qint64 before = terminal.size();
    const Clock::time_point start = Clock::now();
    if (!bench.type(text)) {
        return;
    }
    const bool whole =
        spinUntil([&] { return terminal.size() >= before + expected.size(); }, 60000);
    const Clock::time_point end = Clock::now();
    QFile file(terminal.file);
    file.open(QIODevice::ReadOnly);
    file.seek(before);
    const QByteArray received = file.readAll();
    const QString got = QString::fromUtf8(received);
    qsizetype lost = std::abs(text.size() - got.size());
    for (qsizetype i = 0; i < std::min(text.size(), got.size()); ++i) {
        lost += text[i] != got[i] ? 1 : 0;
    }
    const double seconds = millisecondsBetween(start, end) / 1000.0;
    std::printf("throughput %-9s %lld characters in %.1f ms: %.0f characters/s, %lld wrong or "
                "lost%s\n",
                name, static_cast<long long>(text.size()), seconds * 1000, text.size() / seconds,
                static_cast<long long>(lost), whole ? "" : " (timed out)");
}

// How long after flush() has synchronised with the server xterm still needs to pass
// the keys on: flush() does its XSync before it returns when nothing waits.
void measureFlushLag(Bench& bench, Terminal& terminal) {
    for (int burst : {1, 10, 100, 1000}) {
        std::vector<double> lags;
        for (int round = 0; round < 30; ++round) {
            const qint64 target = terminal.size() + burst;
            bench.type(QString(burst, QLatin1Char('x')));
            bool flushed = false;
            bench.keyboard->flush([&flushed] { flushed = true; });
            const Clock::time_point synced = Clock::now();
            spinUntil([&] { return terminal.size() >= target; }, 10000);
            lags.push_back(millisecondsBetween(synced, Clock::now()));
            spinUntil([&flushed] { return flushed; }, 1000);
        }
        std::printf("flush   %4d keys: xterm done %.2f ms (p50), %.2f ms (p99) after the XSync "
                    "(settle is %d ms)\n",
                    burst, percentile(lags, 0.5), percentile(lags, 0.99),
                    X11Keyboard::kFlushSettleMs);
    }
}

int argumentValue(const QStringList& arguments, const QString& name, int fallback) {
    const qsizetype at = arguments.indexOf(name);
    return at >= 0 && at + 1 < arguments.size() ? arguments[at + 1].toInt() : fallback;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    const int characters =
        std::max(100, argumentValue(arguments, QStringLiteral("--chars"), 20000));
    const int samples = std::max(10, argumentValue(arguments, QStringLiteral("--samples"), 2000));

    const QString missing = test::XSession::missingPrograms(true);
    if (!missing.isEmpty()) {
        std::fprintf(stderr, "mervak-xbench needs Xvfb, openbox and xterm: %s\n",
                     qPrintable(missing));
        return 2;
    }
    Bench bench;
    QString error;
    if (!bench.session.start(true, &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    bench.connection = std::make_unique<X11Connection>(bench.session.display());
    if (!bench.connection->isOpen()) {
        std::fprintf(stderr, "cannot open the X display %s\n",
                     qPrintable(bench.connection->displayName()));
        return 1;
    }
    bench.windows = std::make_unique<X11WindowSystem>(*bench.connection);
    bench.keyboard = std::make_unique<X11Keyboard>(*bench.connection);

    measureLatency(bench, samples);

    Terminal terminal;
    if (!openTerminal(bench, QStringLiteral("Typing bench"), &terminal)) {
        std::fprintf(stderr, "the terminal never showed up\n");
        return 1;
    }
    const QString sentence =
        QStringLiteral("The quick brown fox jumps over the lazy dog 0123456789. ");
    const QString accents = QStringLiteral("àéèíïòóúüçñ·€ÀÉÈÍÏÒÓÚÜÇÑ¿¡ŀ");
    QString plain;
    QString accented;
    while (plain.size() < characters) {
        plain += sentence;
    }
    while (accented.size() < characters) {
        accented += accents;
    }
    measureThroughput(bench, terminal, "plain", plain.left(characters));
    bench.type(accents); // maps them once
    spinFor(200);
    measureThroughput(bench, terminal, "accented", accented.left(characters));
    measureFlushLag(bench, terminal);
    std::printf("keymap changes: %d\n", bench.keyboard->keymapChanges());
    return 0;
}
