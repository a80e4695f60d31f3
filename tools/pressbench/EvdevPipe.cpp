#include "EvdevPipe.h"

#include "devices/EvemuFormat.h"

#include <QDir>
#include <QFileInfo>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mervak::bench {

namespace {

constexpr int32_t kAxisMax = 4095;
constexpr int kSheetMin = 1;
constexpr int kSheetMax = 119;

InputCapabilities penTablet() {
    InputCapabilities c;
    c.name = QStringLiteral("Mervak press bench pen");
    c.keys.set(BTN_TOUCH).set(BTN_TOOL_PEN);
    c.axes[ABS_X] = AbsAxis{0, kAxisMax, 0};
    c.axes[ABS_Y] = AbsAxis{0, kAxisMax, 0};
    return c;
}

// The reading the device's whole area maps back onto `units`.
int32_t axisValue(int units, bool upwards) {
    const double f = double(units - kSheetMin) / (kSheetMax - kSheetMin);
    return static_cast<int32_t>(std::lround((upwards ? 1.0 - f : f) * kAxisMax));
}

QByteArray frame(std::initializer_list<InputEvent> events) {
    QByteArray lines;
    for (const InputEvent& event : events)
        lines += evemuEventLine(event);
    return lines + evemuEventLine({0, EV_SYN, SYN_REPORT, 0});
}

} // namespace

EvdevPipe::~EvdevPipe() {
    if (fd_ >= 0)
        ::close(fd_);
}

// Held open for reading too, so that the pipe takes the header before Mervak opens it.
bool EvdevPipe::create(const QString& path, QString* error) {
    path_ = path;
    const QByteArray name = QFile::encodeName(path);
    if (::mkfifo(name.constData(), 0600) != 0 ||
        (fd_ = ::open(name.constData(), O_RDWR | O_CLOEXEC)) < 0) {
        *error = QStringLiteral("cannot make the pipe %1: %2").arg(path, strerror(errno));
        return false;
    }
    // Mervak's device is ready once it has read the first event.
    write(evemuHeader(penTablet()) + frame({}));
    return true;
}

void EvdevPipe::press(int x, int y) {
    write(frame({{0, EV_KEY, BTN_TOOL_PEN, 1},
                 {0, EV_ABS, ABS_X, axisValue(x, false)},
                 {0, EV_ABS, ABS_Y, axisValue(y, true)},
                 {0, EV_KEY, BTN_TOUCH, 1}}));
}

void EvdevPipe::lift() {
    write(frame({{0, EV_KEY, BTN_TOUCH, 0}, {0, EV_KEY, BTN_TOOL_PEN, 0}}));
}

int EvdevPipe::unread() const {
    int bytes = 0;
    return ::ioctl(fd_, FIONREAD, &bytes) == 0 ? bytes : 0;
}

bool EvdevPipe::openedBy(qint64 pid) const {
    const QDir fds(QStringLiteral("/proc/%1/fd").arg(pid));
    for (const QFileInfo& link : fds.entryInfoList(QDir::System | QDir::NoDotAndDotDot))
        if (link.symLinkTarget() == path_)
            return true;
    return false;
}

void EvdevPipe::write(const QByteArray& bytes) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd_, bytes.constData() + done, size_t(bytes.size() - done));
        if (n < 0 && errno != EINTR)
            return;
        done += std::max<ssize_t>(n, 0);
    }
}

} // namespace mervak::bench
