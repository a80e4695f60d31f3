#pragma once

#include "devices/SerialLink.h"

#include <QByteArrayList>
#include <QMap>
#include <QPointer>
#include <QString>
#include <map>

namespace mervak::test {

// A serial device as the fake links find it by path.
struct FakeSerialDevice {
    OpenFailure openFailure = OpenFailure::None;
    // What the device answers to each write (command with its terminator): the
    // reads that arrive, in order, each delivered from the event loop.
    QMap<QByteArray, QByteArrayList> replies;
    bool emitsSent = true; // the send event follows every write
    QByteArrayList written;
};

class FakeSerialBus;

// A scripted serial link: answers writes from its device's replies; tests push
// reads, line events and a lost device by hand.
class FakeSerialLink : public SerialLink {
    Q_OBJECT
public:
    explicit FakeSerialLink(FakeSerialBus& bus) : bus_(bus) {}

    OpenResult open(const QString& devicePath) override;
    bool isOpen() const override { return device_ != nullptr; }
    void write(const QByteArray& bytes) override;
    void close() override { device_ = nullptr; }

    QString path() const { return path_; }
    void deliver(const QByteArray& bytes) { emit received(bytes); }
    void raise(int code) { emit lineEvent(code); }
    void loseDevice();

private:
    FakeSerialBus& bus_;
    FakeSerialDevice* device_ = nullptr;
    QString path_;
};

// The machine's serial ports for fake links: devices by path, and every link made.
class FakeSerialBus {
public:
    FakeSerialDevice& device(const QString& path) { return devices_[path]; }
    bool has(const QString& path) const { return devices_.count(path) > 0; }
    SerialLinkFactory factory();
    // The most recent link opened on `path`, or null.
    FakeSerialLink* openLink(const QString& path) const;
    QStringList openedPaths() const { return opened_; }

private:
    friend class FakeSerialLink;
    std::map<QString, FakeSerialDevice> devices_;
    QList<QPointer<FakeSerialLink>> links_;
    QStringList opened_;
};

} // namespace mervak::test
