#pragma once

#include "tracker/FrameSource.h"

namespace mervak {

// A V4L2 camera through libv4l2, which converts MJPEG and YUYV cameras to RGB.
// It asks for 640 x 480; a camera that gives another size is scaled.
class V4l2CameraSource : public FrameSource {
public:
    static OpenedSource open(const QString& device);
    // The first of /dev/video0.. that is a capture device and opens.
    static OpenedSource openFirst();
    ~V4l2CameraSource() override;

    bool next(cv::Mat& rgb) override;

private:
    V4l2CameraSource(int fd, int width, int height);

    int fd_;
    int width_;
    int height_;
};

} // namespace mervak
