#pragma once

#include <QJsonDocument>
#include <QString>
#include <optional>

namespace mervak {

// sway's IPC socket: a request and its JSON answer, one at a time.
class SwayIpc {
public:
    enum class Request : std::uint32_t { RunCommand = 0, GetOutputs = 3, GetTree = 4 };

    // The socket $SWAYSOCK names, or `path` when given. Connects at once.
    explicit SwayIpc(const QString& path = {});
    ~SwayIpc();
    SwayIpc(const SwayIpc&) = delete;
    SwayIpc& operator=(const SwayIpc&) = delete;

    bool isOpen() const { return socket_ >= 0; }

    // The answer, or nothing when the socket fails or is silent for kTimeoutMs.
    std::optional<QJsonDocument> ask(Request request, const QByteArray& payload = {});

    static constexpr int kTimeoutMs = 1000;

private:
    bool writeAll(const QByteArray& bytes);
    bool readExactly(char* into, std::size_t size);
    void close();

    int socket_ = -1;
};

} // namespace mervak
