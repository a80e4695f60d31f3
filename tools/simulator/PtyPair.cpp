#include "PtyPair.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace mervak::sim {

namespace {

QString systemError(const char* what) {
    return QStringLiteral("%1: %2").arg(QLatin1String(what),
                                        QString::fromLocal8Bit(strerror(errno)));
}

} // namespace

PtyPair::~PtyPair() {
    if (slave_ >= 0)
        ::close(slave_);
    if (master_ >= 0)
        ::close(master_);
}

bool PtyPair::create(QString* error) {
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (master_ < 0) {
        *error = systemError("posix_openpt");
        return false;
    }
    if (grantpt(master_) != 0 || unlockpt(master_) != 0) {
        *error = systemError("grantpt/unlockpt");
        return false;
    }
    const char* name = ptsname(master_);
    if (!name) {
        *error = systemError("ptsname");
        return false;
    }
    slavePath_ = QString::fromLocal8Bit(name);
    slave_ = ::open(name, O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (slave_ < 0) {
        *error = systemError("open slave");
        return false;
    }
    termios raw{};
    tcgetattr(slave_, &raw);
    cfmakeraw(&raw);
    cfsetspeed(&raw, B9600);
    tcsetattr(slave_, TCSANOW, &raw);
    return true;
}

QByteArray PtyPair::readAvailable() {
    QByteArray bytes;
    char buffer[4096];
    for (;;) {
        const ssize_t n = ::read(master_, buffer, sizeof buffer);
        if (n <= 0)
            break;
        bytes.append(buffer, n);
    }
    return bytes;
}

qsizetype PtyPair::write(const QByteArray& bytes) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(master_, bytes.constData() + done, bytes.size() - done);
        if (n <= 0)
            break;
        done += n;
    }
    return done;
}

int PtyPair::unreadByFarSide() const {
    int pending = 0;
    return ioctl(slave_, FIONREAD, &pending) == 0 ? pending : 0;
}

} // namespace mervak::sim
