#pragma once

#include "devices/InputCapabilities.h"
#include "devices/SerialLink.h"

#include <QObject>
#include <QString>
#include <memory>
#include <vector>

namespace mervak {

// The events of one evdev device: the device itself, or a recording played as it.
// Everything is delivered from the event loop of the thread that owns the source.
class InputEventSource : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // Starts reading; when it succeeds, ready() follows once capabilities() are known.
    virtual OpenResult open() = 0;
    // While grabbed, the device's events reach this program only, not the desktop.
    virtual void setGrabbed(bool grabbed) = 0;
    virtual const InputCapabilities& capabilities() const = 0;

    // Events read in one go are handed over together, at most this many, so that a
    // device that floods events leaves the event loop its other work in between.
    static constexpr std::size_t kMaxEventsPerBatch = 256;

signals:
    void ready();
    void eventsArrived(const std::vector<mervak::InputEvent>& events);
    // The device went away (unplugged), or the recording could not be read on.
    void lost();
};

// The source for `port`: a path under /dev/ is a device read through libevdev,
// any other path a recording in evemu's text format.
std::unique_ptr<InputEventSource> makeInputEventSource(const QString& port);

} // namespace mervak
