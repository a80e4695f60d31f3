#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

namespace mervak {

// Why a port could not be opened.
enum class OpenFailure { None, NotFound, NoPermission, Busy, NotSerial, Other };

struct OpenResult {
    OpenFailure failure = OpenFailure::None;
    QString detail; // the platform's own wording, for the curious
    bool ok() const { return failure == OpenFailure::None; }
};

// One serial port at 9600 baud, 8 data bits, no parity, 1 stop bit. All
// notifications come from the event loop of the thread that owns the link.
class SerialLink : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~SerialLink() override = default;

    // Opens the device file (e.g. "/dev/ttyS0", "/dev/pts/3") as it is given.
    virtual OpenResult open(const QString& devicePath) = 0;
    virtual bool isOpen() const = 0;
    virtual void write(const QByteArray& bytes) = 0;
    // Closes without emitting anything; safe to call from any notification.
    virtual void close() = 0;

signals:
    // All the input pending at this moment, as one read.
    void received(const QByteArray& bytes);
    // Output handed to the device: the port's send event.
    void sent();
    // A line event or line error, as a code of the event table (CommEvent.h).
    void lineEvent(int code);
    // The device went away (unplugged, far side of a pseudo-terminal closed).
    // The link has already closed itself when this is emitted.
    void lost(const QString& detail);
};

using SerialLinkFactory = std::function<std::unique_ptr<SerialLink>()>;

// Closes the link, stops its notifications to `receiver` and lets it go. The
// link may be inside one of its own notifications, so it is deleted later.
void closeLink(std::unique_ptr<SerialLink>& link, QObject* receiver);

} // namespace mervak
