#include "support/FakeSerialLink.h"

#include <QTimer>

namespace mervak::test {

OpenResult FakeSerialLink::open(const QString& devicePath) {
    close();
    path_ = devicePath;
    if (!bus_.has(devicePath))
        return {OpenFailure::NotFound, QStringLiteral("No such file or directory")};
    FakeSerialDevice& device = bus_.device(devicePath);
    if (device.openFailure != OpenFailure::None)
        return {device.openFailure, QStringLiteral("refused by the test")};
    device_ = &device;
    bus_.opened_ << devicePath;
    return {};
}

void FakeSerialLink::write(const QByteArray& bytes) {
    if (!device_)
        return;
    device_->written << bytes;
    if (device_->emitsSent)
        QTimer::singleShot(0, this, [this] { emit sent(); });
    for (const QByteArray& read : device_->replies.value(bytes))
        QTimer::singleShot(0, this, [this, read] {
            if (device_)
                emit received(read);
        });
}

void FakeSerialLink::loseDevice() {
    close();
    emit lost(QStringLiteral("Input/output error"));
}

SerialLinkFactory FakeSerialBus::factory() {
    return [this] {
        auto link = std::make_unique<FakeSerialLink>(*this);
        links_ << link.get();
        return std::unique_ptr<SerialLink>(std::move(link));
    };
}

FakeSerialLink* FakeSerialBus::openLink(const QString& path) const {
    for (auto it = links_.crbegin(); it != links_.crend(); ++it)
        if (*it && (*it)->isOpen() && (*it)->path() == path)
            return *it;
    return nullptr;
}

} // namespace mervak::test
