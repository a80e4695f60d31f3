#include "tracker/V4l2CameraSource.h"

#include <QDir>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <libv4l2.h>
#include <linux/videodev2.h>
#include <sys/select.h>

namespace mervak {

namespace {

constexpr int kFrameWaitSeconds = 2; // a camera silent this long is lost

QString explain(const QString& device, const char* what, int error) {
    return device + QStringLiteral(": ") + QLatin1String(what) + QStringLiteral(": ") +
           QString::fromLocal8Bit(std::strerror(error));
}

SourceProblem problemOf(int error) {
    return error == EBUSY ? SourceProblem::CameraBusy : SourceProblem::NoCamera;
}

bool waitReadable(int fd) {
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(fd, &readable);
    timeval timeout{kFrameWaitSeconds, 0};
    int ready;
    do
        ready = select(fd + 1, &readable, nullptr, nullptr, &timeout);
    while (ready < 0 && errno == EINTR);
    return ready > 0;
}

} // namespace

OpenedSource V4l2CameraSource::open(const QString& device) {
    const int fd = v4l2_open(QFile::encodeName(device).constData(), O_RDWR);
    if (fd < 0)
        return {nullptr, problemOf(errno), explain(device, "open", errno)};
    v4l2_capability caps{};
    if (v4l2_ioctl(fd, VIDIOC_QUERYCAP, &caps) < 0 ||
        !(caps.device_caps & V4L2_CAP_VIDEO_CAPTURE)) {
        v4l2_close(fd);
        return {nullptr, SourceProblem::NoCamera, device + QStringLiteral(": not a camera")};
    }
    v4l2_format format{};
    format.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    format.fmt.pix.width = kFrameWidth;
    format.fmt.pix.height = kFrameHeight;
    format.fmt.pix.pixelformat = V4L2_PIX_FMT_RGB24;
    format.fmt.pix.field = V4L2_FIELD_ANY;
    if (v4l2_ioctl(fd, VIDIOC_S_FMT, &format) < 0 ||
        format.fmt.pix.pixelformat != V4L2_PIX_FMT_RGB24) {
        const int error = format.fmt.pix.pixelformat != V4L2_PIX_FMT_RGB24 ? EINVAL : errno;
        v4l2_close(fd);
        return {nullptr, problemOf(error), explain(device, "set format", error)};
    }
    const QString name = QString::fromLocal8Bit(reinterpret_cast<const char*>(caps.card));
    return {std::unique_ptr<FrameSource>(
                new V4l2CameraSource(fd, int(format.fmt.pix.width), int(format.fmt.pix.height))),
            SourceProblem::None, device + QStringLiteral(" (") + name + QLatin1Char(')')};
}

// A busy camera is worth saying so over "no camera" when nothing else opens.
OpenedSource V4l2CameraSource::openFirst() {
    const QStringList devices =
        QDir(QStringLiteral("/dev"))
            .entryList({QStringLiteral("video*")}, QDir::System, QDir::Name);
    OpenedSource failed{nullptr, SourceProblem::NoCamera, QStringLiteral("/dev/video*: no camera")};
    for (const QString& name : devices) {
        OpenedSource opened = open(QStringLiteral("/dev/") + name);
        if (opened.source)
            return opened;
        if (opened.problem == SourceProblem::CameraBusy)
            failed = std::move(opened);
    }
    return failed;
}

V4l2CameraSource::V4l2CameraSource(int fd, int width, int height)
    : fd_(fd), width_(width), height_(height) {}

V4l2CameraSource::~V4l2CameraSource() {
    v4l2_close(fd_);
}

bool V4l2CameraSource::next(cv::Mat& rgb) {
    rgb.create(height_, width_, CV_8UC3);
    const ssize_t size = ssize_t(rgb.total() * rgb.elemSize());
    for (;;) {
        if (!waitReadable(fd_))
            return false;
        const ssize_t got = v4l2_read(fd_, rgb.data, size_t(size));
        if (got == size)
            break;
        if (got < 0 && errno != EAGAIN && errno != EINTR)
            return false;
    }
    fitFrame(rgb);
    return true;
}

} // namespace mervak
