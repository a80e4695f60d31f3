#include "devices/RecordingSource.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mervak {

namespace {

constexpr qsizetype kChunkSize = qsizetype{64} * 1024;

OpenFailure failureOfErrno(int error) {
    switch (error) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return OpenFailure::NotFound;
    case EACCES:
    case EPERM:
        return OpenFailure::NoPermission;
    case EBUSY:
        return OpenFailure::Busy;
    default:
        return OpenFailure::Other;
    }
}

} // namespace

RecordingSource::RecordingSource(QString path, QObject* parent)
    : InputEventSource(parent), path_(std::move(path)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &RecordingSource::deliverDue);
}

RecordingSource::~RecordingSource() {
    notifier_.reset();
    if (fd_ >= 0)
        ::close(fd_);
}

// A named pipe is opened for writing too, so that it never reads as ended
// while no player has it open.
OpenResult RecordingSource::open() {
    struct stat status {};
    if (::stat(path_.toLocal8Bit().constData(), &status) != 0)
        return {failureOfErrno(errno), QString::fromLocal8Bit(strerror(errno))};
    const bool pipe = S_ISFIFO(status.st_mode);
    fd_ = ::open(path_.toLocal8Bit().constData(),
                 (pipe ? O_RDWR : O_RDONLY) | O_NONBLOCK | O_CLOEXEC);
    if (fd_ < 0)
        return {failureOfErrno(errno), QString::fromLocal8Bit(strerror(errno))};
    if (pipe) {
        notifier_ = std::make_unique<QSocketNotifier>(fd_, QSocketNotifier::Read);
        connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
            if (!readChunk(fd_) || !parseLines(false))
                fail();
        });
        return {};
    }
    while (readChunk(fd_)) {
    }
    ::close(std::exchange(fd_, -1));
    if (!parseLines(true))
        return {OpenFailure::Other, error_};
    QMetaObject::invokeMethod(this, &RecordingSource::becomeReady, Qt::QueuedConnection);
    return {};
}

bool RecordingSource::readChunk(int fd) {
    const qsizetype before = pending_.size();
    pending_.resize(before + kChunkSize);
    const ssize_t n = ::read(fd, pending_.data() + before, kChunkSize);
    pending_.resize(before + std::max<ssize_t>(n, 0));
    return n > 0 || (n < 0 && errno == EAGAIN);
}

bool RecordingSource::parseLines(bool atEnd) {
    qsizetype start = 0;
    for (qsizetype end;
         (end = pending_.indexOf('\n', start)) >= 0 || (atEnd && start < pending_.size());
         start = end + 1) {
        if (end < 0)
            end = pending_.size();
        ++lineNumber_;
        QString error;
        if (!parser_.feed(pending_.sliced(start, end - start), &error)) {
            error_ = QStringLiteral("%1, line %2: %3").arg(path_).arg(lineNumber_).arg(error);
            return false;
        }
    }
    pending_.remove(0, std::min(start, pending_.size()));
    for (const InputEvent& event : parser_.takeEvents())
        queue_.push_back(event);
    if (ready_)
        scheduleNext();
    else if (notifier_ && parser_.headerDone())
        becomeReady();
    return true;
}

void RecordingSource::becomeReady() {
    ready_ = true;
    emit ready();
    scheduleNext();
}

void RecordingSource::scheduleNext() {
    if (queue_.empty() || timer_.isActive())
        return;
    if (!clock_.isValid())
        clock_.start();
    const qint64 waitUs = queue_.front().timeUs - clock_.nsecsElapsed() / 1000;
    timer_.start(int(std::max<qint64>(0, (waitUs + 999) / 1000)));
}

void RecordingSource::deliverDue() {
    const qint64 nowUs = clock_.nsecsElapsed() / 1000;
    std::vector<InputEvent> batch;
    while (!queue_.empty() && queue_.front().timeUs <= nowUs && batch.size() < kMaxEventsPerBatch) {
        batch.push_back(queue_.front());
        queue_.pop_front();
    }
    scheduleNext();
    if (!batch.empty())
        emit eventsArrived(batch);
}

void RecordingSource::fail() {
    notifier_.reset();
    ::close(std::exchange(fd_, -1));
    emit lost();
}

} // namespace mervak
