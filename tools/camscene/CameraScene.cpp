#include "camscene/CameraScene.h"

#include "tracker/FrameSource.h"

#include <QFile>
#include <opencv2/imgproc.hpp>

namespace mervak::scene {

namespace {

const cv::Scalar kTable(150, 118, 86); // light wood
const cv::Scalar kPaper(235, 235, 228);
const cv::Scalar kInk(40, 40, 40);
const cv::Scalar kHand(170, 150, 140);
constexpr int kGridLines = 6;

cv::Mat sheetToCamera(const Scene& scene) {
    const cv::Point2f upright[4] = {
        {0, 0}, {kFrameWidth, 0}, {kFrameWidth, kFrameHeight}, {0, kFrameHeight}};
    return cv::getPerspectiveTransform(upright, scene.corners.data());
}

cv::Point cameraPoint(const Scene& scene, double x, double y) {
    const cv::Point2d p = toCamera(scene, {x, y});
    return {int(std::lround(p.x)), int(std::lround(p.y))};
}

// The printed grid of the sheet's Areas.
void drawGrid(cv::Mat& frame, const Scene& scene) {
    for (int i = 1; i < kGridLines; ++i) {
        const double x = kFrameWidth * i / double(kGridLines);
        const double y = kFrameHeight * i / double(kGridLines);
        cv::line(frame, cameraPoint(scene, x, 0), cameraPoint(scene, x, kFrameHeight), kInk, 2);
        cv::line(frame, cameraPoint(scene, 0, y), cameraPoint(scene, kFrameWidth, y), kInk, 2);
    }
}

} // namespace

cv::Point2d toCamera(const Scene& scene, cv::Point2d sheet) {
    std::vector<cv::Point2d> in{sheet}, out;
    cv::perspectiveTransform(in, out, sheetToCamera(scene));
    return out[0];
}

cv::Mat renderFrame(const Scene& scene, std::optional<cv::Point2d> marker,
                    std::optional<cv::Rect> occluder) {
    cv::Mat frame(kFrameHeight, kFrameWidth, CV_8UC3, kTable);
    std::vector<cv::Point> sheet;
    for (const cv::Point2f& corner : scene.corners)
        sheet.emplace_back(int(std::lround(corner.x)), int(std::lround(corner.y)));
    cv::fillConvexPoly(frame, sheet, kPaper, cv::LINE_AA);
    drawGrid(frame, scene);
    if (marker) {
        // Drawn at 1/16 pixel so that the centre need not be a whole pixel.
        constexpr int kShift = 4;
        const cv::Point centre(int(std::lround(marker->x * 16)), int(std::lround(marker->y * 16)));
        cv::circle(frame, centre, scene.markerRadius * 16,
                   cv::Scalar(scene.colour.r, scene.colour.g, scene.colour.b), cv::FILLED,
                   cv::LINE_AA, kShift);
    }
    if (occluder)
        cv::rectangle(frame, *occluder, kHand, cv::FILLED);
    if (scene.brightness != 1)
        frame.convertTo(frame, -1, scene.brightness);
    if (scene.noiseSigma > 0) {
        cv::Mat noise(frame.size(), CV_16SC3);
        cv::RNG rng(scene.seed);
        rng.fill(noise, cv::RNG::NORMAL, 0, scene.noiseSigma);
        cv::Mat noisy;
        frame.convertTo(noisy, CV_16SC3);
        noisy += noise;
        noisy.convertTo(frame, CV_8UC3);
    }
    return frame;
}

Y4mWriter::Y4mWriter(const QString& path, int framesPerSecond)
    : file_(std::fopen(QFile::encodeName(path).constData(), "wb")) {
    if (file_)
        std::fprintf(file_, "YUV4MPEG2 W%d H%d F%d:1 Ip A1:1 C420jpeg\n", kFrameWidth, kFrameHeight,
                     framesPerSecond);
}

Y4mWriter::~Y4mWriter() {
    if (file_)
        std::fclose(file_);
}

void Y4mWriter::write(const cv::Mat& rgb) {
    cv::Mat planes;
    cv::cvtColor(rgb, planes, cv::COLOR_RGB2YUV_I420);
    std::fputs("FRAME\n", file_);
    std::fwrite(planes.data, 1, planes.total(), file_);
}

} // namespace mervak::scene
