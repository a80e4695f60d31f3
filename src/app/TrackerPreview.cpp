#include "app/TrackerPreview.h"

#include <QElapsedTimer>
#include <QThread>

namespace mervak {

namespace {

constexpr int kFirstFrameWaitMs = 1000;
constexpr int kFirstFramePollMs = 10;

QImage toImage(const cv::Mat& rgb) {
    if (rgb.empty())
        return {};
    return QImage(rgb.data, rgb.cols, rgb.rows, int(rgb.step), QImage::Format_RGB888).copy();
}

} // namespace

TrackerPreview::TrackerPreview(ColourTracker& tracker, QObject* parent)
    : QObject(parent), tracker_(tracker) {
    timer_.setInterval(kRateMs);
    connect(&timer_, &QTimer::timeout, this, &TrackerPreview::refresh);
}

TrackerPreview::~TrackerPreview() {
    StopPreview();
}

bool TrackerPreview::StartPreview(CameraPicture* picture) {
    if (isOpen() && picture_ == picture)
        return true;
    StopPreview();
    if (!tracker_.isRunning() && tracker_.start() != ColourTracker::Start::Started)
        return false;
    picture_ = picture;
    timer_.start();
    refresh();
    return true;
}

void TrackerPreview::StopPreview() {
    timer_.stop();
    if (picture_)
        picture_->clearLive();
    picture_.clear();
}

bool TrackerPreview::GrabFrame() {
    if (!isOpen())
        return false;
    QElapsedTimer waited;
    waited.start();
    cv::Mat frame = tracker_.latestFrame();
    while (frame.empty() && tracker_.isRunning() && waited.elapsed() < kFirstFrameWaitMs) {
        QThread::msleep(kFirstFramePollMs);
        frame = tracker_.latestFrame();
    }
    grabbed_ = toImage(frame);
    return !grabbed_.isNull();
}

bool TrackerPreview::SaveFrame(const QString& file) const {
    return !grabbed_.isNull() && grabbed_.save(file, "BMP");
}

void TrackerPreview::refresh() {
    if (!picture_)
        return;
    const QImage frame = toImage(tracker_.latestFrame());
    if (frame.isNull())
        return;
    const TrackerResult result = tracker_.latest();
    picture_->showLive(frame, result.status == 1 ? std::optional(QPoint(result.x, result.y))
                                                 : std::nullopt);
}

} // namespace mervak
