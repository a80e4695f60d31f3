#pragma once

#include "EvdevPipe.h"
#include "LatencySummary.h"
#include "PtyPair.h"
#include "TabletResponder.h"
#include "WaitBreakdown.h"

#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <chrono>
#include <memory>
#include <optional>
#include <random>

namespace mervak::test {
class XEventProbe;
}

namespace mervak::bench {

// Plays the serial tablet to a running Mervak and times each press from the
// write of its packet to the KeyPress at a probe window of this process, with one
// monotonic clock. Mervak runs as a child on the display this process was given.
class PressBench {
public:
    struct Options {
        QString mervak;          // the program to start
        QString display;         // ":N"
        int presses = 500;       // measured, after the warm-up
        int warmUpPresses = 20;  // not measured: the first presses map keys and settle focus
        int liftAfterMs = 10;    // from a press packet to its no-press packet
        int periodMs = 40;       // from one press packet to the next, plus 0..10 ms jitter
        int keyTimeoutMs = 1000; // a press whose key has not come by then is lost
        int idleSeconds = 10;    // the idle CPU measurement
        bool keepFiles = false;  // leave the home folder, Template and Mervak's log behind
        bool replay = false;     // an evdev pen replayed from a named pipe, not the serial tablet
    };

    struct Result {
        LatencySummary latency;    // microseconds
        int lost = 0;              // presses whose key never came
        int stray = 0;             // keys nobody asked for
        int backlogged = 0;        // presses held back: Mervak had not read the last packet yet
        double idleCpuSeconds = 0; // over Options::idleSeconds
        qint64 rssAfterStartKiB = 0;
        qint64 rssAtEndKiB = 0;
        WaitBreakdown waits;            // of the measured presses, slow meaning over 2 ms
        bool xServerWaitsKnown = false; // the X server was found beside this process
        QString port;
        QString folder; // the work folder, when kept
    };

    explicit PressBench(Options options);
    ~PressBench();
    PressBench(const PressBench&) = delete;
    PressBench& operator=(const PressBench&) = delete;

    // Runs the whole measurement. False, with the reason, when it could not.
    bool run(Result* result, QString* error);

private:
    using Clock = std::chrono::steady_clock;

    bool prepare(QString* error);
    bool startMervak(QString* error);
    bool awaitStreaming(QString* error);
    // Run-queue waits so far of Mervak, the X server and this process, in ns.
    struct Waits {
        qint64 mervak = 0;
        qint64 xServer = 0;
        qint64 bench = 0;
    };

    void pressAll(Result* result);
    bool measureIdle(Result* result, QString* error);
    Waits waitsNow() const;
    bool awaitDrained(Clock::time_point deadline);
    std::optional<Clock::time_point> awaitKey(char key, Clock::time_point deadline);
    void idleUntil(Clock::time_point moment);
    void serviceTablet();
    void writePress(int x, int y);
    void writeLift();
    int unreadByMervak();
    bool mervakRuns(QString* error);
    std::optional<qint64> rssNow(QString* error);
    void stopMervak();

    Options options_;
    QTemporaryDir folder_;
    sim::PtyPair pty_;
    sim::TabletResponder responder_;
    EvdevPipe pipe_;
    std::unique_ptr<test::XEventProbe> probe_;
    QProcess mervak_;
    std::mt19937 random_{1};
    int stray_ = 0;
    std::optional<qint64> xServer_; // its process id
};

} // namespace mervak::bench
