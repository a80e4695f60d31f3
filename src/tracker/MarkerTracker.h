#pragma once

#include "tracker/TrackerSettings.h"

#include <opencv2/core.hpp>
#include <optional>

namespace mervak {

// Finds one coloured marker in a 640 x 480 RGB frame: an HSV threshold around the
// marker's colour, the mask opened to remove specks, and the centroid of the
// largest blob that reaches the minimum area.
//
// The blob is found on a half-size frame and its centroid measured at full size
// inside the blob's box, which keeps one frame well under two milliseconds on
// one core. Buffers are kept between frames; one tracker per thread.
class MarkerTracker {
public:
    explicit MarkerTracker(MarkerColour colour = {},
                           int minimumArea = TrackerSettings{}.minimumArea);

    void setColour(MarkerColour colour);
    MarkerColour colour() const { return colour_; }

    // The marker's centroid in frame pixels, or nothing.
    std::optional<cv::Point2d> find(const cv::Mat& rgb);

private:
    void threshold(const cv::Mat& rgb, cv::Mat& mask);
    std::optional<cv::Rect> largestBlob(const cv::Mat& mask);
    std::optional<cv::Point2d> centroidIn(const cv::Mat& rgb, cv::Rect box);

    MarkerColour colour_;
    int minimumArea_;
    cv::Scalar low_, high_; // HSV bounds; the hue wraps when low_[0] > high_[0]
    cv::Mat small_, hsv_, mask_, wrapped_, labels_, stats_, centroids_, roiMask_;
    cv::Mat kernel_;
};

} // namespace mervak
