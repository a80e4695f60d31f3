#pragma once

#include "tracker/FrameSource.h"

#include <QFile>
#include <chrono>
#include <optional>

namespace mervak {

// A YUV4MPEG2 file (4:2:0 or mono) that stands in for a camera: its frames come
// at the file's own frame rate, once; after the last one there are no more.
class Y4mFileSource : public FrameSource {
public:
    static OpenedSource open(const QString& path);

    bool next(cv::Mat& rgb) override;

    struct Header {
        int width = 0;
        int height = 0;
        double framesPerSecond = 0;
        bool mono = false;
    };
    // The stream header line without "YUV4MPEG2"; nothing when it is not one we play.
    static std::optional<Header> parseHeader(const QByteArray& line);

private:
    Y4mFileSource(const QString& path, Header header);

    QFile file_;
    Header header_;
    cv::Mat planes_;
    std::chrono::steady_clock::time_point start_;
    long long delivered_ = 0;
};

} // namespace mervak
