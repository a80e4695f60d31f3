#pragma once

#include "tracker/TrackerSettings.h"

#include <QString>
#include <array>
#include <opencv2/core.hpp>
#include <optional>

namespace mervak::scene {

// A camera over a table: the sheet seen in perspective, its corners (top-left,
// top-right, bottom-right, bottom-left) in pixels of the 640 x 480 frame.
struct Scene {
    std::array<cv::Point2f, 4> corners{{{112, 64}, {548, 84}, {604, 436}, {52, 412}}};
    double noiseSigma = 0; // Gaussian noise added to each channel
    double brightness = 1; // the whole picture scaled by this
    int markerRadius = 9;
    MarkerColour colour;
    unsigned seed = 1;
};

// A point of the sheet, in units of the upright 640 x 480 rectangle, as the camera sees it.
cv::Point2d toCamera(const Scene& scene, cv::Point2d sheet);

// One RGB frame with the marker centred on `marker` (camera pixels) and,
// optionally, a grey hand over part of the picture.
cv::Mat renderFrame(const Scene& scene, std::optional<cv::Point2d> marker,
                    std::optional<cv::Rect> occluder = std::nullopt);

// Writes RGB frames as a 4:2:0 YUV4MPEG2 file.
class Y4mWriter {
public:
    Y4mWriter(const QString& path, int framesPerSecond);
    ~Y4mWriter();
    bool isOpen() const { return file_ != nullptr; }
    void write(const cv::Mat& rgb);

private:
    std::FILE* file_;
};

} // namespace mervak::scene
