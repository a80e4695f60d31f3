#pragma once

#include <QString>
#include <memory>
#include <opencv2/core.hpp>

namespace mervak {

// Every source delivers frames of this size; a camera that cannot is scaled.
constexpr int kFrameWidth = 640;
constexpr int kFrameHeight = 480;

// Where the frames come from: a camera, or a video file standing in for one.
class FrameSource {
public:
    virtual ~FrameSource() = default;
    // Waits for the next frame and fills `rgb` with it, 640 x 480, 8-bit RGB.
    // False when no frame will come any more: the file ended or the camera was lost.
    virtual bool next(cv::Mat& rgb) = 0;
};

// Why a source could not be opened.
enum class SourceProblem { None, NoCamera, CameraBusy, Unreadable };

struct OpenedSource {
    std::unique_ptr<FrameSource> source;
    SourceProblem problem = SourceProblem::None;
    QString detail; // in plain words, with the device or file named
};

// The `Camera` setting: a path ending in ".y4m" is a YUV4MPEG2 file, another path
// a V4L2 device, and an empty setting the first camera that opens.
OpenedSource openFrameSource(const QString& camera);

// Scales a frame of another size to 640 x 480, in place.
void fitFrame(cv::Mat& rgb);

} // namespace mervak
