// mervak-press-bench: latency from the last byte of a tablet packet to the KeyPress
// in a real X client, with Mervak itself in between; also Mervak's idle CPU and
// resident memory. Run it inside a display:
//   scripts/with-display.sh build/DIR/bin/mervak-press-bench [--presses N]

#include "PressBench.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <cstdio>

using namespace mervak::bench;

namespace {

constexpr double kBudgetP50Us = 1000;
constexpr double kBudgetP99Us = 2000;
constexpr int kUsageError = 2;

QString budgetVerdict(double value, double budget) {
    return value <= budget ? QStringLiteral("met") : QStringLiteral("MISSED");
}

void printResult(const PressBench::Options& options, const PressBench::Result& r) {
    const auto ms = [](double us) { return us / 1000.0; };
    std::printf("mervak-press-bench: %d presses (after %d warm-up) on %s, display %s\n",
                options.presses, options.warmUpPresses, r.port.toLocal8Bit().constData(),
                options.display.toLocal8Bit().constData());
    std::printf("%s written -> KeyPress at the probe window, n=%zu:\n",
                options.replay ? "evdev event" : "packet", r.latency.count);
    std::printf("  p50 %.3f ms  p90 %.3f ms  p99 %.3f ms  max %.3f ms\n", ms(r.latency.p50),
                ms(r.latency.p90), ms(r.latency.p99), ms(r.latency.max));
    const WaitBreakdown& w = r.waits;
    std::printf("  latency less the run-queue waits of Mervak, the X server%s and the probe:\n"
                "  p50 %.3f ms  p90 %.3f ms  p99 %.3f ms  max %.3f ms\n",
                r.xServerWaitsKnown ? "" : " (not found)", ms(w.ownWork.p50), ms(w.ownWork.p90),
                ms(w.ownWork.p99), ms(w.ownWork.max));
    if (w.slowPresses > 0)
        std::printf("  %d presses over 2 ms, mean %.3f ms, of which waiting for a CPU: "
                    "Mervak %.3f ms, X server %.3f ms, probe %.3f ms\n",
                    w.slowPresses, ms(w.slowMeanLatencyUs), ms(w.slowMeanMervakWaitUs),
                    ms(w.slowMeanXServerWaitUs), ms(w.slowMeanBenchWaitUs));
    std::printf("presses lost: %d of %d (no key within %d ms); stray keys: %d\n", r.lost,
                options.presses, options.keyTimeoutMs, r.stray);
    std::printf("presses held back until Mervak had read the packet before: %d\n", r.backlogged);
    std::printf("idle with the tablet active: %.1f ms of CPU over %d s (%.2f %% of one core)\n",
                r.idleCpuSeconds * 1000.0, options.idleSeconds,
                100.0 * r.idleCpuSeconds / options.idleSeconds);
    std::printf("resident memory: %.1f MiB after start, %.1f MiB at the end\n",
                r.rssAfterStartKiB / 1024.0, r.rssAtEndKiB / 1024.0);
    std::printf("budget p50 <= 1 ms: %s; p99 <= 2 ms: %s\n",
                qPrintable(budgetVerdict(r.latency.p50, kBudgetP50Us)),
                qPrintable(budgetVerdict(r.latency.p99, kBudgetP99Us)));
    if (!r.folder.isEmpty())
        std::printf("files kept in %s\n", r.folder.toLocal8Bit().constData());
}

int positive(const QCommandLineParser& parser, const QString& name, int fallback) {
    if (!parser.isSet(name))
        return fallback;
    bool ok = false;
    const int value = parser.value(name).toInt(&ok);
    if (!ok || value < 1) {
        std::fprintf(stderr, "mervak-press-bench: --%s wants a whole number of 1 or more\n",
                     name.toLocal8Bit().constData());
        std::exit(kUsageError);
    }
    return value;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Times presses of a simulated serial tablet through Mervak to the "
                       "KeyPress in a window of its own. Needs DISPLAY (see "
                       "scripts/with-display.sh)."));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("presses"), QStringLiteral("Presses measured (default 500)."),
         QStringLiteral("N")},
        {QStringLiteral("idle-seconds"),
         QStringLiteral("Length of the idle CPU measurement (default 10)."), QStringLiteral("S")},
        {QStringLiteral("mervak"),
         QStringLiteral("The program to start (default: the mervak "
                        "beside this tool)."),
         QStringLiteral("PATH")},
        {QStringLiteral("keep"), QStringLiteral("Keep the work folder and Mervak's log.")},
        {QStringLiteral("replay"),
         QStringLiteral("Press an evdev pen tablet (Model=DIL) replayed live from a named pipe, "
                        "instead of the serial tablet.")},
    });
    parser.process(app);

    PressBench::Options options;
    options.display = qEnvironmentVariable("DISPLAY");
    if (options.display.isEmpty()) {
        std::fprintf(stderr, "mervak-press-bench: DISPLAY is not set; run it under "
                             "scripts/with-display.sh\n");
        return kUsageError;
    }
    options.presses = positive(parser, QStringLiteral("presses"), options.presses);
    options.idleSeconds = positive(parser, QStringLiteral("idle-seconds"), options.idleSeconds);
    options.mervak = parser.isSet(QStringLiteral("mervak"))
                         ? parser.value(QStringLiteral("mervak"))
                         : QCoreApplication::applicationDirPath() + QStringLiteral("/mervak");
    options.keepFiles = parser.isSet(QStringLiteral("keep"));
    options.replay = parser.isSet(QStringLiteral("replay"));
    if (!QFileInfo(options.mervak).isExecutable()) {
        std::fprintf(stderr, "mervak-press-bench: %s is not a program\n",
                     options.mervak.toLocal8Bit().constData());
        return kUsageError;
    }

    PressBench bench(options);
    PressBench::Result result;
    QString error;
    if (!bench.run(&result, &error)) {
        std::fprintf(stderr, "mervak-press-bench: %s\n", error.toLocal8Bit().constData());
        return 1;
    }
    printResult(options, result);
    return 0;
}
