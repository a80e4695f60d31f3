#include "tracker/FrameSource.h"

#include "tracker/V4l2CameraSource.h"
#include "tracker/Y4mFileSource.h"

#include <opencv2/imgproc.hpp>

namespace mervak {

OpenedSource openFrameSource(const QString& camera) {
    if (camera.endsWith(QLatin1String(".y4m"), Qt::CaseInsensitive))
        return Y4mFileSource::open(camera);
    if (camera.isEmpty())
        return V4l2CameraSource::openFirst();
    return V4l2CameraSource::open(camera);
}

void fitFrame(cv::Mat& rgb) {
    if (rgb.cols == kFrameWidth && rgb.rows == kFrameHeight)
        return;
    cv::Mat scaled;
    cv::resize(rgb, scaled, cv::Size(kFrameWidth, kFrameHeight), 0, 0, cv::INTER_AREA);
    rgb = scaled;
}

} // namespace mervak
