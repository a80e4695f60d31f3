#include "tracker/ColourTracker.h"

#include <cmath>

namespace mervak {

ColourTracker::~ColourTracker() {
    stop();
}

void ColourTracker::configure(const TrackerSettings& settings) {
    settings_ = settings;
    setColour(settings.colour);
}

void ColourTracker::setColour(MarkerColour colour) {
    const std::lock_guard lock(mutex_);
    colour_ = colour;
    colourChanged_ = true;
}

ColourTracker::Start ColourTracker::start() {
    if (isRunning())
        return Start::AlreadyRunning;
    stop(); // a worker whose source ended
    OpenedSource opened = openFrameSource(settings_.camera);
    {
        const std::lock_guard lock(mutex_);
        problem_ = opened.detail;
        result_ = {};
        frame_ = cv::Mat();
    }
    switch (opened.problem) {
    case SourceProblem::None:
        break;
    case SourceProblem::NoCamera:
        return Start::NoCamera;
    case SourceProblem::CameraBusy:
        return Start::CameraBusy;
    case SourceProblem::Unreadable:
        return Start::Unreadable;
    }
    stopping_ = false;
    running_ = true;
    worker_ = std::thread(&ColourTracker::run, this, std::move(opened.source), settings_);
    return Start::Started;
}

void ColourTracker::stop() {
    stopping_ = true;
    if (worker_.joinable())
        worker_.join();
    running_ = false;
}

bool ColourTracker::isRunning() const {
    return running_;
}

QString ColourTracker::problem() const {
    const std::lock_guard lock(mutex_);
    return problem_;
}

int ColourTracker::VSTInicialitza(int) {
    const Start started = start();
    return started == Start::Started || started == Start::AlreadyRunning ? 1 : 0;
}

int ColourTracker::VSTObtenirPosicio(int16_t& x, int16_t& y) const {
    const TrackerResult result = latest();
    if (result.status == 1) {
        x = result.x;
        y = result.y;
    }
    return result.status;
}

TrackerResult ColourTracker::latest() const {
    const std::lock_guard lock(mutex_);
    return result_;
}

cv::Mat ColourTracker::latestFrame() const {
    const std::lock_guard lock(mutex_);
    return frame_;
}

// Once the source has no more frames there is no marker: the last position must
// not stay pressed.
void ColourTracker::run(std::unique_ptr<FrameSource> source, const TrackerSettings& settings) {
    MarkerTracker tracker(settings.colour, settings.minimumArea);
    while (!stopping_) {
        cv::Mat frame; // a new buffer each time: the preview may still hold the last one
        if (!source->next(frame))
            break;
        const auto arrived = std::chrono::steady_clock::now();
        {
            const std::lock_guard lock(mutex_);
            if (colourChanged_) {
                tracker.setColour(colour_);
                colourChanged_ = false;
            }
        }
        publish(frame, tracker.find(frame), arrived);
    }
    const std::lock_guard lock(mutex_);
    result_.status = 0;
    running_ = false;
}

void ColourTracker::publish(const cv::Mat& frame, std::optional<cv::Point2d> marker,
                            std::chrono::steady_clock::time_point arrived) {
    const std::lock_guard lock(mutex_);
    frame_ = frame;
    result_.status = marker ? 1 : 0;
    if (marker) {
        result_.x = int16_t(std::lround(marker->x));
        result_.y = int16_t(std::lround(marker->y));
    }
    ++result_.frame;
    result_.arrived = arrived;
}

} // namespace mervak
