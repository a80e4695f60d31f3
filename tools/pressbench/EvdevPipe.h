#pragma once

#include <QString>

namespace mervak::bench {

// A named pipe that Mervak replays live as an evdev pen tablet (Model=DIL):
// each press is written when it happens, stamped at the recording's start so
// that Mervak delivers it as soon as it reads it.
class EvdevPipe {
public:
    EvdevPipe() = default;
    ~EvdevPipe();
    EvdevPipe(const EvdevPipe&) = delete;
    EvdevPipe& operator=(const EvdevPipe&) = delete;

    // Makes the pipe at `path` and writes the device's header. False with the reason.
    bool create(const QString& path, QString* error);
    QString path() const { return path_; }

    // The pen down at a sheet point (units 1..119, Y upwards), and up again.
    void press(int x, int y);
    void lift();
    // Bytes written that the reader has not taken yet.
    int unread() const;
    // Whether process `pid` holds the pipe open: Mervak has opened the device.
    bool openedBy(qint64 pid) const;

private:
    void write(const QByteArray& bytes);

    QString path_;
    int fd_ = -1;
};

} // namespace mervak::bench
