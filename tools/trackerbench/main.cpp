// mervak-tracker-bench: the colour tracker on one core.
//   mervak-tracker-bench [--frames N] [--retard MS]
// 1. The tracker alone on a 640 x 480 frame, against a plain cv::inRange of the
//    same frame measured in the same run (budget 1.5 ms).
// 2. Frames per second through the worker (file source, decoding included).
// 3. Latency from a frame's arrival to the position slot, polled every RetardPort ms.

#include "camscene/CameraScene.h"
#include "tracker/ColourTracker.h"
#include "tracker/PerspectiveMapping.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <opencv2/core/utility.hpp>
#include <thread>
#include <vector>

using namespace mervak;
using Clock = std::chrono::steady_clock;

namespace {

constexpr double kBudgetMs = 1.5;
constexpr int kWarmUp = 50;

double percentile(std::vector<double> values, double fraction) {
    std::sort(values.begin(), values.end());
    const auto index = std::size_t(fraction * double(values.size() - 1));
    return values[index];
}

template <typename Work> std::vector<double> timeEach(int runs, Work work) {
    std::vector<double> ms;
    for (int i = 0; i < runs + kWarmUp; ++i) {
        const auto start = Clock::now();
        work();
        if (i >= kWarmUp)
            ms.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    return ms;
}

void trackerAlone(int runs) {
    scene::Scene scene;
    scene.noiseSigma = 4;
    const cv::Mat frame = scene::renderFrame(scene, scene::toCamera(scene, {300, 200}));
    MarkerTracker tracker;
    cv::Mat mask;
    const auto trackMs = timeEach(runs, [&] { (void)tracker.find(frame); });
    const auto inRangeMs = timeEach(
        runs, [&] { cv::inRange(frame, cv::Scalar(150, 0, 0), cv::Scalar(255, 60, 60), mask); });
    const double track = percentile(trackMs, 0.5);
    const double plain = percentile(inRangeMs, 0.5);
    std::printf("tracker alone, 640x480, one core, n=%d: p50 %.3f ms  p99 %.3f ms\n", runs, track,
                percentile(trackMs, 0.99));
    std::printf("plain cv::inRange of the same frame:      p50 %.3f ms  p99 %.3f ms\n", plain,
                percentile(inRangeMs, 0.99));
    std::printf("ratio tracker / inRange: %.1f; budget %.1f ms: %s\n", track / plain, kBudgetMs,
                track <= kBudgetMs ? "met" : "MISSED");
}

QString writeVideo(const QString& folder, int frames, int fps) {
    const QString path = folder + QStringLiteral("/bench.y4m");
    scene::Scene scene;
    scene.noiseSigma = 4;
    scene::Y4mWriter writer(path, fps);
    for (int i = 0; i < frames; ++i) {
        const double t = double(i) / frames;
        writer.write(scene::renderFrame(scene, scene::toCamera(scene, {60 + 520 * t, 240})));
    }
    return path;
}

void pipelineRate(const QString& folder, int frames) {
    ColourTracker tracker;
    tracker.configure({writeVideo(folder, frames, 1000), {}, 40, 0});
    const auto start = Clock::now();
    tracker.start();
    while (tracker.isRunning())
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    std::printf("pipeline (file decode, tracking, publishing): %llu frames in %.2f s, %.0f fps\n",
                static_cast<unsigned long long>(tracker.latest().frame), seconds,
                double(tracker.latest().frame) / seconds);
}

// Timer3 as the program runs it: poll, map, fill the slot.
void latency(const QString& folder, int frames, int retardMs) {
    ColourTracker tracker;
    tracker.configure({writeVideo(folder, frames, 30), {}, 40, 0});
    PerspectiveMapping mapping(PrivateProfile(folder + QStringLiteral("/MERVAK.INI")),
                               [](const QString&) {});
    Corners corners;
    const scene::Scene scene;
    for (int k = 1; k <= 4; ++k) {
        corners.x[k] = int16_t(std::lround(scene.corners[k - 1].x));
        corners.y[k] = int16_t(std::lround(scene.corners[k - 1].y));
    }
    WriteCorners(PrivateProfile(folder + QStringLiteral("/MERVAK.INI")), corners,
                 QDate::currentDate());
    mapping.BuildMapping();
    std::vector<double> ms;
    uint64_t seen = 0;
    QTimer timer3;
    timer3.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer3, &QTimer::timeout, [&] {
        const TrackerResult result = tracker.latest();
        if (result.frame == seen)
            return;
        seen = result.frame;
        const SheetCell slot = mapping.cameraToSheet(result.status, result.x, result.y);
        (void)slot;
        ms.push_back(
            std::chrono::duration<double, std::milli>(Clock::now() - result.arrived).count());
        if (!tracker.isRunning())
            QCoreApplication::quit();
    });
    tracker.start();
    timer3.start(retardMs);
    QCoreApplication::exec();
    std::printf("frame arrival -> slot, Timer3 every %d ms, n=%zu: p50 %.2f ms  p99 %.2f ms  "
                "max %.2f ms\n",
                retardMs, ms.size(), percentile(ms, 0.5), percentile(ms, 0.99),
                *std::max_element(ms.begin(), ms.end()));
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Times the colour tracker on one core."));
    parser.addHelpOption();
    parser.addOptions({{QStringLiteral("frames"), QStringLiteral("Frames per measurement."),
                        QStringLiteral("N"), QStringLiteral("300")},
                       {QStringLiteral("retard"), QStringLiteral("Timer3 interval (RetardPort)."),
                        QStringLiteral("MS"), QStringLiteral("10")}});
    parser.process(app);
    const int frames = std::max(10, parser.value(QStringLiteral("frames")).toInt());
    cv::setNumThreads(1);
    QTemporaryDir folder;
    trackerAlone(frames * 3);
    pipelineRate(folder.path(), frames);
    latency(folder.path(), frames / 2, std::max(1, parser.value(QStringLiteral("retard")).toInt()));
    return 0;
}
