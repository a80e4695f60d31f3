#pragma once

#include "tracker/FrameSource.h"
#include "tracker/MarkerTracker.h"

#include <QString>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <thread>

namespace mervak {

// The latest result of the tracker.
struct TrackerResult {
    int status = 0; // 1: a marker at (x, y); anything else: none
    int16_t x = 0;
    int16_t y = 0;
    uint64_t frame = 0; // frames tracked since the start; 0 before the first
    std::chrono::steady_clock::time_point arrived; // when that frame came from the source
};

// The colour tracker the messages call "Vistal": one frame source, opened once,
// whose frames a worker thread tracks. The user-interface thread only reads the
// latest result and the latest frame (for the preview and the still picture).
class ColourTracker {
public:
    enum class Start { Started, AlreadyRunning, NoCamera, CameraBusy, Unreadable };

    ColourTracker() = default;
    ~ColourTracker();
    ColourTracker(const ColourTracker&) = delete;
    ColourTracker& operator=(const ColourTracker&) = delete;

    // Takes effect at the next start; the colour at once.
    void configure(const TrackerSettings& settings);
    void setColour(MarkerColour colour);

    // Opens the source and starts tracking. `problem()` then says what was opened
    // or, after a failure, why not, in plain words.
    Start start();
    void stop();
    bool isRunning() const;
    QString problem() const;

    // The tracker library's contract: non-zero when the tracker is running (the
    // argument is always 0); stop; and the latest position in pixels of the
    // 640 x 480 frame, status 1 when there is one.
    int VSTInicialitza(int);
    void VSTFinalitza() { stop(); }
    int VSTObtenirPosicio(int16_t& x, int16_t& y) const;

    TrackerResult latest() const;
    // Empty before the first frame.
    cv::Mat latestFrame() const;

private:
    void run(std::unique_ptr<FrameSource> source, const TrackerSettings& settings);
    void publish(const cv::Mat& frame, std::optional<cv::Point2d> marker,
                 std::chrono::steady_clock::time_point arrived);

    TrackerSettings settings_;
    std::thread worker_;
    std::atomic<bool> stopping_ = false;
    std::atomic<bool> running_ = false;
    mutable std::mutex mutex_; // guards what follows
    TrackerResult result_;
    cv::Mat frame_;
    MarkerColour colour_;
    bool colourChanged_ = false;
    QString problem_;
};

} // namespace mervak
