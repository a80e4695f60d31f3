#include "PressBench.h"

#include "BenchFiles.h"
#include "ProcessSample.h"
#include "xharness/XEventProbe.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcessEnvironment>
#include <QRect>
#include <thread>
#include <unistd.h>

namespace mervak::bench {

namespace {

constexpr int kXKeyPress = 2; // KeyPress of <X11/X.h>
constexpr int kStartTimeoutMs = 20000;
constexpr int kSettleMs = 2000;      // after streaming starts: start-up ends, focus settles
constexpr int kJitterMs = 10;        // keeps the presses from locking onto Mervak's timers
constexpr int kGiveUpAfterLost = 20; // in a row: Mervak no longer types, no use going on
constexpr int kNoPressCode = 120;    // a coordinate of 120 reads as no press
constexpr int kStopTimeoutMs = 3000;
constexpr double kSlowUs = 2000;   // the p99 budget
constexpr int kServiceSliceMs = 2; // the tablet answers within this while idle
const QRect kProbeGeometry(700, 100, 400, 300);

QByteArray packet(int x, int y) {
    QByteArray bytes(1, '^');
    bytes.append(static_cast<char>(x)).append(static_cast<char>(y));
    return bytes;
}

double microsecondsBetween(std::chrono::steady_clock::time_point from,
                           std::chrono::steady_clock::time_point to) {
    return std::chrono::duration<double, std::micro>(to - from).count();
}

int millisecondsUntil(std::chrono::steady_clock::time_point moment) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        moment - std::chrono::steady_clock::now());
    return static_cast<int>(std::max<std::int64_t>(0, left.count()));
}

} // namespace

PressBench::PressBench(Options options)
    : options_(std::move(options)),
      folder_(QDir::tempPath() + QStringLiteral("/mervak-press-bench-XXXXXX")) {
    folder_.setAutoRemove(!options_.keepFiles);
}

PressBench::~PressBench() {
    stopMervak();
}

bool PressBench::run(Result* result, QString* error) {
    if (!prepare(error) || !startMervak(error) || !awaitStreaming(error))
        return false;
    idleUntil(Clock::now() + std::chrono::milliseconds(kSettleMs));
    const std::optional<qint64> rssAfterStart = rssNow(error);
    if (!rssAfterStart)
        return false;
    result->rssAfterStartKiB = *rssAfterStart;
    result->port = options_.replay ? pipe_.path() : pty_.slavePath();
    if (options_.keepFiles)
        result->folder = folder_.path();

    pressAll(result);
    if (!measureIdle(result, error))
        return false;
    result->stray = stray_;
    return true;
}

// The tablet stays active and nothing is pressed.
bool PressBench::measureIdle(Result* result, QString* error) {
    idleUntil(Clock::now() + std::chrono::milliseconds(kSettleMs / 2));
    const std::optional<ProcessSample> before = sampleProcess(mervak_.processId());
    idleUntil(Clock::now() + std::chrono::seconds(options_.idleSeconds));
    const std::optional<ProcessSample> after = sampleProcess(mervak_.processId());
    if (!before || !after) {
        if (mervakRuns(error))
            *error = QStringLiteral("cannot read Mervak's /proc entries");
        return false;
    }
    result->idleCpuSeconds = ticksToSeconds(after->cpuTicks - before->cpuTicks);
    result->rssAtEndKiB = after->rssKiB;
    return true;
}

bool PressBench::prepare(QString* error) {
    if (!folder_.isValid()) {
        *error = QStringLiteral("no temporary folder: ") + folder_.errorString();
        return false;
    }
    if (options_.replay ? !pipe_.create(folder_.filePath(QStringLiteral("pen.evemu")), error)
                        : !pty_.create(error))
        return false;
    const QString title =
        QStringLiteral("Mervak press bench %1").arg(QCoreApplication::applicationPid());
    probe_ = std::make_unique<test::XEventProbe>(options_.display, title, kProbeGeometry);
    if (!probe_->isOpen()) {
        *error = QStringLiteral("cannot open the display \"%1\"").arg(options_.display);
        return false;
    }
    // scripts/with-display.sh starts the server beside the program it runs.
    xServer_ = findChildProcess(getppid(), "Xvfb");
    const QString home = folder_.filePath(QStringLiteral("home"));
    if (!QDir().mkpath(home)) {
        *error = QStringLiteral("cannot create ") + home;
        return false;
    }
    const QString port = options_.replay ? pipe_.path() : pty_.slavePath();
    return writeBenchHome(home, options_.replay ? QStringLiteral("DIL") : QStringLiteral("EASY"),
                          port, error) &&
           writeBenchTemplate(folder_.filePath(QStringLiteral("bench.mvw")), title, error);
}

bool PressBench::startMervak(QString* error) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), options_.display);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    // A private runtime folder: a Mervak of the user's own must not make this one refuse.
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder_.path());
    mervak_.setProcessEnvironment(environment);
    mervak_.setStandardOutputFile(folder_.filePath(QStringLiteral("mervak.log")));
    mervak_.setStandardErrorFile(folder_.filePath(QStringLiteral("mervak.log")), QIODevice::Append);
    mervak_.start(options_.mervak,
                  {QStringLiteral("--home"), folder_.filePath(QStringLiteral("home")),
                   folder_.filePath(QStringLiteral("bench.mvw"))});
    if (!mervak_.waitForStarted(kStartTimeoutMs)) {
        *error = options_.mervak + QStringLiteral(" did not start: ") + mervak_.errorString();
        return false;
    }
    return true;
}

// Answers the set-up dialogue until Mervak switches the tablet to streaming;
// a replayed device streams once Mervak has opened its pipe.
bool PressBench::awaitStreaming(QString* error) {
    const auto deadline = Clock::now() + std::chrono::milliseconds(kStartTimeoutMs);
    while (options_.replay ? !pipe_.openedBy(mervak_.processId()) : !responder_.isStreaming()) {
        if (!mervakRuns(error))
            return false;
        if (Clock::now() > deadline) {
            *error = QStringLiteral("Mervak did not start the tablet within %1 s; last command "
                                    "heard: \"%2\"")
                         .arg(kStartTimeoutMs / 1000)
                         .arg(QString::fromLatin1(responder_.lastCommand()));
            return false;
        }
        idleUntil(Clock::now() + std::chrono::milliseconds(10));
    }
    return true;
}

void PressBench::pressAll(Result* result) {
    std::vector<PressTiming> timings;
    int lostInRow = 0;
    const int total = options_.warmUpPresses + options_.presses;
    for (int i = 0; i < total && lostInRow < kGiveUpAfterLost; ++i) {
        const BenchArea area = i % 2 == 0 ? kLeftArea : kRightArea;
        // Two packets in one read count as one: the next press waits for the lift to be read.
        if (!awaitDrained(Clock::now() + std::chrono::milliseconds(options_.keyTimeoutMs)))
            ++result->backlogged;
        const Waits before = waitsNow();
        const Clock::time_point written = Clock::now(); // the write's own time is included
        writePress(area.x, area.y);
        const std::optional<Clock::time_point> keyAt =
            awaitKey(area.key, written + std::chrono::milliseconds(options_.keyTimeoutMs));
        const Waits after = waitsNow();
        idleUntil(written + std::chrono::milliseconds(options_.liftAfterMs));
        const Clock::time_point lifted = Clock::now();
        writeLift();
        // After a late key the lift is late too: the press still keeps its distance from it.
        const int gap = options_.periodMs + static_cast<int>(random_() % (kJitterMs + 1));
        idleUntil(
            std::max(written + std::chrono::milliseconds(gap),
                     lifted + std::chrono::milliseconds(options_.periodMs - options_.liftAfterMs)));
        lostInRow = keyAt ? 0 : lostInRow + 1;
        if (i < options_.warmUpPresses)
            continue;
        if (keyAt)
            timings.push_back(
                {microsecondsBetween(written, *keyAt), (after.mervak - before.mervak) / 1000.0,
                 (after.xServer - before.xServer) / 1000.0, (after.bench - before.bench) / 1000.0});
    }
    // Presses not made after giving up count as lost too.
    result->lost = options_.presses - static_cast<int>(timings.size());
    std::vector<double> latencies;
    for (const PressTiming& timing : timings)
        latencies.push_back(timing.latencyUs);
    result->latency = summarize(std::move(latencies));
    result->waits = breakdown(timings, kSlowUs);
    result->xServerWaitsKnown = xServer_.has_value();
}

PressBench::Waits PressBench::waitsNow() const {
    return {runQueueWaitNs(mervak_.processId()).value_or(0),
            xServer_ ? runQueueWaitNs(*xServer_).value_or(0) : 0,
            runQueueWaitNs(QCoreApplication::applicationPid()).value_or(0)};
}

// True when everything written had been read already; else waits until it is.
bool PressBench::awaitDrained(Clock::time_point deadline) {
    if (unreadByMervak() == 0)
        return true;
    while (unreadByMervak() > 0 && Clock::now() < deadline)
        idleUntil(Clock::now() + std::chrono::milliseconds(1));
    return false;
}

// The arrival time of the KeyPress of `key`; other keys that come first are stray.
std::optional<PressBench::Clock::time_point> PressBench::awaitKey(char key,
                                                                  Clock::time_point deadline) {
    while (Clock::now() < deadline) {
        const std::optional<test::XEventProbe::Event> event =
            probe_->next(std::max(1, millisecondsUntil(deadline)));
        if (!event || event->type != kXKeyPress)
            continue;
        if (event->keysym == static_cast<unsigned long>(key))
            return event->receivedAt;
        ++stray_;
    }
    return std::nullopt;
}

// Keeps the tablet answering and the probe drained until `moment`.
void PressBench::idleUntil(Clock::time_point moment) {
    while (Clock::now() < moment) {
        serviceTablet();
        const std::optional<test::XEventProbe::Event> event =
            probe_->next(std::min(kServiceSliceMs, millisecondsUntil(moment)));
        if (event && event->type == kXKeyPress)
            ++stray_;
        if (!event && millisecondsUntil(moment) == 0)
            std::this_thread::sleep_until(moment);
    }
}

void PressBench::writePress(int x, int y) {
    if (options_.replay)
        pipe_.press(x, y);
    else
        pty_.write(packet(x, y));
}

void PressBench::writeLift() {
    if (options_.replay)
        pipe_.lift();
    else
        pty_.write(packet(kNoPressCode, kNoPressCode));
}

int PressBench::unreadByMervak() {
    return options_.replay ? pipe_.unread() : int(pty_.unreadByFarSide());
}

void PressBench::serviceTablet() {
    if (options_.replay)
        return;
    const QByteArray heard = pty_.readAvailable();
    if (!heard.isEmpty())
        pty_.write(responder_.feed(heard));
}

bool PressBench::mervakRuns(QString* error) {
    if (mervak_.state() == QProcess::Running && sampleProcess(mervak_.processId()))
        return true;
    QFile log(folder_.filePath(QStringLiteral("mervak.log")));
    const QByteArray said =
        log.open(QIODevice::ReadOnly) ? log.readAll().right(2000) : QByteArray();
    *error = QStringLiteral("Mervak ended (exit code %1); it said:\n%2")
                 .arg(mervak_.exitCode())
                 .arg(QString::fromLocal8Bit(said));
    return false;
}

std::optional<qint64> PressBench::rssNow(QString* error) {
    if (const std::optional<ProcessSample> sample = sampleProcess(mervak_.processId()))
        return sample->rssKiB;
    mervakRuns(error);
    return std::nullopt;
}

void PressBench::stopMervak() {
    if (mervak_.state() == QProcess::NotRunning)
        return;
    mervak_.terminate();
    if (!mervak_.waitForFinished(kStopTimeoutMs)) {
        mervak_.kill();
        mervak_.waitForFinished(kStopTimeoutMs);
    }
}

} // namespace mervak::bench
