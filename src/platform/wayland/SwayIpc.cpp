#include "platform/wayland/SwayIpc.h"

#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace mervak {

namespace {

constexpr char kMagic[] = {'i', '3', '-', 'i', 'p', 'c'};
constexpr std::size_t kHeaderSize = sizeof kMagic + 8;

} // namespace

SwayIpc::SwayIpc(const QString& path) {
    const QByteArray where =
        (path.isEmpty() ? qEnvironmentVariable("SWAYSOCK") : path).toLocal8Bit();
    sockaddr_un address{};
    if (where.isEmpty() || static_cast<std::size_t>(where.size()) >= sizeof address.sun_path)
        return;
    socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket_ < 0)
        return;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, where.constData(), where.size());
    if (connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        close();
}

SwayIpc::~SwayIpc() {
    close();
}

std::optional<QJsonDocument> SwayIpc::ask(Request request, const QByteArray& payload) {
    if (!isOpen())
        return std::nullopt;
    QByteArray message(kMagic, sizeof kMagic);
    const auto length = static_cast<std::uint32_t>(payload.size());
    const auto type = static_cast<std::uint32_t>(request);
    message.append(reinterpret_cast<const char*>(&length), 4);
    message.append(reinterpret_cast<const char*>(&type), 4);
    message.append(payload);
    char header[kHeaderSize];
    if (!writeAll(message) || !readExactly(header, kHeaderSize) ||
        std::memcmp(header, kMagic, sizeof kMagic) != 0) {
        close();
        return std::nullopt;
    }
    std::uint32_t size = 0;
    std::memcpy(&size, header + sizeof kMagic, 4);
    QByteArray body(static_cast<qsizetype>(size), Qt::Uninitialized);
    if (!readExactly(body.data(), size)) {
        close();
        return std::nullopt;
    }
    return QJsonDocument::fromJson(body);
}

bool SwayIpc::writeAll(const QByteArray& bytes) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t written = ::send(socket_, bytes.constData() + done,
                                       static_cast<std::size_t>(bytes.size() - done), MSG_NOSIGNAL);
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

bool SwayIpc::readExactly(char* into, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        pollfd readable{socket_, POLLIN, 0};
        if (poll(&readable, 1, kTimeoutMs) <= 0)
            return false;
        const ssize_t got = ::recv(socket_, into + done, size - done, 0);
        if (got <= 0)
            return false;
        done += static_cast<std::size_t>(got);
    }
    return true;
}

void SwayIpc::close() {
    if (socket_ >= 0)
        ::close(socket_);
    socket_ = -1;
}

} // namespace mervak
