#include "tracker/Y4mFileSource.h"

#include <QFileInfo>
#include <opencv2/imgproc.hpp>
#include <thread>

namespace mervak {

namespace {

constexpr qint64 kLongestLine = 256;

// Frame rates outside this range are not a camera's.
constexpr double kSlowestRate = 0.1;
constexpr double kFastestRate = 1000;

bool readLine(QFile& file, QByteArray* line) {
    *line = file.readLine(kLongestLine);
    if (!line->endsWith('\n'))
        return false;
    line->chop(1);
    return true;
}

} // namespace

std::optional<Y4mFileSource::Header> Y4mFileSource::parseHeader(const QByteArray& line) {
    Header header;
    for (const QByteArray& token : line.split(' ')) {
        if (token.isEmpty())
            continue;
        const QByteArray value = token.mid(1);
        switch (token[0]) {
        case 'W':
            header.width = value.toInt();
            break;
        case 'H':
            header.height = value.toInt();
            break;
        case 'F': {
            const QList<QByteArray> ratio = value.split(':');
            const double denominator = ratio.size() == 2 ? ratio[1].toDouble() : 0;
            header.framesPerSecond = denominator > 0 ? ratio[0].toDouble() / denominator : 0;
            break;
        }
        case 'C':
            if (value == "mono")
                header.mono = true;
            else if (!value.startsWith("420"))
                return std::nullopt;
            break;
        default:
            break;
        }
    }
    const bool evenSize = header.width > 0 && header.height > 0 && header.width % 2 == 0 &&
                          header.height % 2 == 0 && header.width <= 8192 && header.height <= 8192;
    if (!evenSize || header.framesPerSecond < kSlowestRate || header.framesPerSecond > kFastestRate)
        return std::nullopt;
    return header;
}

OpenedSource Y4mFileSource::open(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {nullptr, SourceProblem::NoCamera, path + QStringLiteral(": ") + file.errorString()};
    QByteArray line;
    std::optional<Header> header;
    if (readLine(file, &line) && line.startsWith("YUV4MPEG2 "))
        header = parseHeader(line.mid(10));
    if (!header)
        return {nullptr, SourceProblem::Unreadable,
                path + QStringLiteral(": not a 4:2:0 YUV4MPEG2 video")};
    auto source = std::unique_ptr<Y4mFileSource>(new Y4mFileSource(path, *header));
    source->file_.seek(file.pos());
    return {std::move(source), SourceProblem::None, QFileInfo(path).fileName()};
}

Y4mFileSource::Y4mFileSource(const QString& path, Header header)
    : file_(path), header_(header),
      planes_(header.height * 3 / 2, header.width, CV_8UC1, cv::Scalar(128)),
      start_(std::chrono::steady_clock::now()) {
    file_.open(QIODevice::ReadOnly);
}

bool Y4mFileSource::next(cv::Mat& rgb) {
    QByteArray line;
    if (!readLine(file_, &line) || !line.startsWith("FRAME"))
        return false;
    const qint64 lumaSize = qint64(header_.width) * header_.height;
    const qint64 size = header_.mono ? lumaSize : lumaSize * 3 / 2;
    if (file_.read(reinterpret_cast<char*>(planes_.data), size) != size)
        return false;
    const auto due =
        start_ + std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                     std::chrono::duration<double>(delivered_ / header_.framesPerSecond));
    std::this_thread::sleep_until(due);
    ++delivered_;
    cv::cvtColor(planes_, rgb, cv::COLOR_YUV2RGB_I420);
    fitFrame(rgb);
    return true;
}

} // namespace mervak
