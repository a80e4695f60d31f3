#include "tracker/MarkerTracker.h"

#include <opencv2/imgproc.hpp>

namespace mervak {

namespace {

constexpr int kHueTolerance = 10; // OpenCV hue runs 0..179
constexpr int kHueTurn = 180;
constexpr int kLowestSaturation = 60;
constexpr int kLowestValue = 50;
constexpr int kScale = 2;  // the blob search runs at half size
constexpr int kMargin = 4; // full-size pixels around the blob's box

} // namespace

MarkerTracker::MarkerTracker(MarkerColour colour, int minimumArea)
    : minimumArea_(minimumArea),
      kernel_(cv::getStructuringElement(cv::MORPH_RECT, cv::Size(3, 3))) {
    setColour(colour);
}

// Saturation and brightness may drop to half the picked colour's, so that the
// marker is still found in shadow; the floors keep grey and black out.
void MarkerTracker::setColour(MarkerColour colour) {
    colour_ = colour;
    cv::Mat pixel(1, 1, CV_8UC3, cv::Scalar(colour.r, colour.g, colour.b));
    cv::Mat hsv;
    cv::cvtColor(pixel, hsv, cv::COLOR_RGB2HSV);
    const cv::Vec3b h = hsv.at<cv::Vec3b>(0, 0);
    const int hueLow = (h[0] - kHueTolerance + kHueTurn) % kHueTurn;
    const int hueHigh = (h[0] + kHueTolerance) % kHueTurn;
    low_ =
        cv::Scalar(hueLow, std::max(kLowestSaturation, h[1] / 2), std::max(kLowestValue, h[2] / 2));
    high_ = cv::Scalar(hueHigh, 255, 255);
}

std::optional<cv::Point2d> MarkerTracker::find(const cv::Mat& rgb) {
    cv::resize(rgb, small_, cv::Size(rgb.cols / kScale, rgb.rows / kScale), 0, 0,
               cv::INTER_NEAREST);
    threshold(small_, mask_);
    const std::optional<cv::Rect> blob = largestBlob(mask_);
    if (!blob)
        return std::nullopt;
    const cv::Rect box =
        cv::Rect(blob->x * kScale - kMargin, blob->y * kScale - kMargin,
                 blob->width * kScale + 2 * kMargin, blob->height * kScale + 2 * kMargin) &
        cv::Rect(0, 0, rgb.cols, rgb.rows);
    return centroidIn(rgb, box);
}

void MarkerTracker::threshold(const cv::Mat& rgb, cv::Mat& mask) {
    cv::cvtColor(rgb, hsv_, cv::COLOR_RGB2HSV);
    if (low_[0] <= high_[0]) {
        cv::inRange(hsv_, low_, high_, mask);
    } else {
        cv::inRange(hsv_, low_, cv::Scalar(kHueTurn - 1, 255, 255), mask);
        cv::inRange(hsv_, cv::Scalar(0, low_[1], low_[2]), high_, wrapped_);
        mask |= wrapped_;
    }
    cv::morphologyEx(mask, mask, cv::MORPH_OPEN, kernel_);
}

std::optional<cv::Rect> MarkerTracker::largestBlob(const cv::Mat& mask) {
    const int count =
        cv::connectedComponentsWithStats(mask, labels_, stats_, centroids_, 8, CV_32S);
    const int minimum = (minimumArea_ + kScale * kScale - 1) / (kScale * kScale);
    int best = 0;
    int bestArea = 0;
    for (int label = 1; label < count; ++label) {
        const int area = stats_.at<int>(label, cv::CC_STAT_AREA);
        if (area >= minimum && area > bestArea) {
            best = label;
            bestArea = area;
        }
    }
    if (best == 0)
        return std::nullopt;
    return cv::Rect(stats_.at<int>(best, cv::CC_STAT_LEFT), stats_.at<int>(best, cv::CC_STAT_TOP),
                    stats_.at<int>(best, cv::CC_STAT_WIDTH),
                    stats_.at<int>(best, cv::CC_STAT_HEIGHT));
}

std::optional<cv::Point2d> MarkerTracker::centroidIn(const cv::Mat& rgb, cv::Rect box) {
    threshold(rgb(box), roiMask_);
    const cv::Moments m = cv::moments(roiMask_, true);
    if (m.m00 == 0)
        return std::nullopt;
    return cv::Point2d(box.x + m.m10 / m.m00, box.y + m.m01 / m.m00);
}

} // namespace mervak
