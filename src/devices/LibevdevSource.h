#pragma once

#include "devices/InputEventSource.h"

#include <QSocketNotifier>
#include <QStringList>
#include <memory>

struct libevdev;

namespace mervak {

// An evdev device under /dev/input, read through libevdev.
class LibevdevSource : public InputEventSource {
    Q_OBJECT
public:
    explicit LibevdevSource(QString path, QObject* parent = nullptr);
    ~LibevdevSource() override;

    OpenResult open() override;
    void setGrabbed(bool grabbed) override;
    const InputCapabilities& capabilities() const override { return capabilities_; }

    // The input devices, stable /dev/input/by-id names first, each device once.
    static QStringList devicePaths();
    // The device's name and capabilities, read without keeping it open.
    static std::optional<InputCapabilities> probe(const QString& path, OpenResult* result);

private:
    void readEvents();
    void close();

    QString path_;
    int fd_ = -1;
    libevdev* device_ = nullptr;
    std::unique_ptr<QSocketNotifier> notifier_;
    InputCapabilities capabilities_;
    bool grabbed_ = false;
    bool syncing_ = false; // catching up after the kernel dropped events
};

} // namespace mervak
