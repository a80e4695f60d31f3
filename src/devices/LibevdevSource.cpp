#include "devices/LibevdevSource.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTimer>
#include <cerrno>
#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <unistd.h>

namespace mervak {

namespace {

OpenResult openResultOf(int error) {
    const QString detail = QString::fromLocal8Bit(strerror(error));
    switch (error) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return {OpenFailure::NotFound, detail};
    case EACCES:
    case EPERM:
        return {OpenFailure::NoPermission, detail};
    default:
        return {OpenFailure::Other, detail};
    }
}

InputCapabilities capabilitiesOf(const libevdev* device) {
    InputCapabilities capabilities;
    capabilities.name = QString::fromUtf8(libevdev_get_name(device));
    for (int property = 0; property < INPUT_PROP_CNT; ++property)
        capabilities.properties.set(property, libevdev_has_property(device, property) == 1);
    for (int code = 0; code < KEY_CNT; ++code)
        capabilities.keys.set(code, libevdev_has_event_code(device, EV_KEY, code) == 1);
    for (int code = 0; code < ABS_CNT; ++code)
        if (const input_absinfo* info = libevdev_get_abs_info(device, code))
            capabilities.axes[code] = AbsAxis{info->minimum, info->maximum, info->value};
    return capabilities;
}

// Opens the device non-blocking; fd -1 with the failure otherwise.
std::pair<int, OpenResult> openDevice(const QString& path) {
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    return {fd, fd < 0 ? openResultOf(errno) : OpenResult{}};
}

} // namespace

LibevdevSource::LibevdevSource(QString path, QObject* parent)
    : InputEventSource(parent), path_(std::move(path)) {}

LibevdevSource::~LibevdevSource() {
    close();
}

OpenResult LibevdevSource::open() {
    auto [fd, result] = openDevice(path_);
    if (fd < 0)
        return result;
    const int error = libevdev_new_from_fd(fd, &device_);
    if (error < 0) {
        ::close(fd);
        return openResultOf(-error);
    }
    fd_ = fd;
    libevdev_set_clock_id(device_, CLOCK_MONOTONIC);
    capabilities_ = capabilitiesOf(device_);
    notifier_ = std::make_unique<QSocketNotifier>(fd_, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &LibevdevSource::readEvents);
    QMetaObject::invokeMethod(this, &InputEventSource::ready, Qt::QueuedConnection);
    return {};
}

void LibevdevSource::setGrabbed(bool grabbed) {
    grabbed_ = grabbed;
    if (device_)
        libevdev_grab(device_, grabbed ? LIBEVDEV_GRAB : LIBEVDEV_UNGRAB);
}

// Reads at most one batch; the rest waits for the next pass of the event loop.
void LibevdevSource::readEvents() {
    std::vector<InputEvent> batch;
    while (device_ && batch.size() < kMaxEventsPerBatch) {
        input_event event{};
        const int status = libevdev_next_event(
            device_, syncing_ ? LIBEVDEV_READ_FLAG_SYNC : LIBEVDEV_READ_FLAG_NORMAL, &event);
        if (status == -EAGAIN && syncing_) {
            syncing_ = false;
            continue;
        }
        if (status == -EAGAIN)
            break;
        if (status < 0) {
            close();
            emit lost();
            return;
        }
        syncing_ = status == LIBEVDEV_READ_STATUS_SYNC;
        batch.push_back({int64_t(event.input_event_sec) * 1'000'000 + event.input_event_usec,
                         event.type, event.code, event.value});
    }
    if (batch.size() == kMaxEventsPerBatch && device_ && libevdev_has_event_pending(device_) > 0)
        QTimer::singleShot(0, this, &LibevdevSource::readEvents);
    if (!batch.empty())
        emit eventsArrived(batch);
}

void LibevdevSource::close() {
    notifier_.reset();
    if (device_) {
        if (grabbed_)
            libevdev_grab(device_, LIBEVDEV_UNGRAB);
        libevdev_free(std::exchange(device_, nullptr));
    }
    if (fd_ >= 0)
        ::close(std::exchange(fd_, -1));
}

QStringList LibevdevSource::devicePaths() {
    QStringList paths;
    QSet<QString> seen;
    const auto add = [&](const QFileInfo& entry) {
        const QString target = entry.canonicalFilePath();
        if (!target.isEmpty() && !seen.contains(target)) {
            seen.insert(target);
            paths.append(entry.absoluteFilePath());
        }
    };
    const QDir byId(QStringLiteral("/dev/input/by-id"));
    for (const QFileInfo& entry :
         byId.entryInfoList({QStringLiteral("*-event-*")}, QDir::System | QDir::Files))
        add(entry);
    const QDir input(QStringLiteral("/dev/input"));
    for (const QFileInfo& entry :
         input.entryInfoList({QStringLiteral("event*")}, QDir::System | QDir::Files, QDir::Name))
        add(entry);
    return paths;
}

std::optional<InputCapabilities> LibevdevSource::probe(const QString& path, OpenResult* result) {
    auto [fd, opened] = openDevice(path);
    *result = opened;
    if (fd < 0)
        return std::nullopt;
    libevdev* device = nullptr;
    const int error = libevdev_new_from_fd(fd, &device);
    std::optional<InputCapabilities> capabilities;
    if (error < 0)
        *result = openResultOf(-error);
    else
        capabilities = capabilitiesOf(device);
    libevdev_free(device);
    ::close(fd);
    return capabilities;
}

} // namespace mervak
