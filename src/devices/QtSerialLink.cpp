#include "devices/QtSerialLink.h"

#include "devices/CommEvent.h"

#include <QDir>
#include <QFileInfo>
#include <QSerialPort>
#include <QSerialPortInfo>

namespace mervak {

namespace {

bool isAccessible(const QString& path) {
    const QFileInfo info(path);
    return info.isReadable() && info.isWritable();
}

// QSerialPort reports a port held by another program as a lock "permission"
// error (Qt programs) or an unknown error (EBUSY): tell those from a real lack
// of permission by looking at the file itself.
OpenFailure openFailureOf(QSerialPort::SerialPortError error, const QString& path) {
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return OpenFailure::NotFound;
    case QSerialPort::PermissionError:
        return isAccessible(path) ? OpenFailure::Busy : OpenFailure::NoPermission;
    case QSerialPort::OpenError:
        return OpenFailure::Busy;
    case QSerialPort::UnsupportedOperationError:
        return OpenFailure::NotSerial;
    default:
        if (!QFileInfo::exists(path))
            return OpenFailure::NotFound;
        return isAccessible(path) ? OpenFailure::Busy : OpenFailure::Other;
    }
}

} // namespace

QtSerialLink::QtSerialLink(QObject* parent) : SerialLink(parent), port_(new QSerialPort(this)) {
    connect(port_, &QSerialPort::readyRead, this, [this] { emit received(port_->readAll()); });
    connect(port_, &QSerialPort::bytesWritten, this, [this] { emit sent(); });
    connect(port_, &QSerialPort::errorOccurred, this,
            [this](QSerialPort::SerialPortError e) { onError(static_cast<int>(e)); });
}

QtSerialLink::~QtSerialLink() = default;

OpenResult QtSerialLink::open(const QString& devicePath) {
    close();
    port_->setPortName(devicePath);
    port_->setBaudRate(QSerialPort::Baud9600);
    port_->setDataBits(QSerialPort::Data8);
    port_->setParity(QSerialPort::NoParity);
    port_->setStopBits(QSerialPort::OneStop);
    port_->setFlowControl(QSerialPort::NoFlowControl);
    opening_ = true;
    const bool ok = port_->open(QIODevice::ReadWrite);
    opening_ = false;
    if (ok)
        return {};
    const OpenResult result{openFailureOf(port_->error(), devicePath), port_->errorString()};
    port_->clearError();
    return result;
}

bool QtSerialLink::isOpen() const {
    return port_->isOpen();
}

void QtSerialLink::write(const QByteArray& bytes) {
    if (port_->isOpen())
        port_->write(bytes);
}

void QtSerialLink::close() {
    if (port_->isOpen())
        port_->close();
}

void QtSerialLink::onError(int error) {
    const auto e = static_cast<QSerialPort::SerialPortError>(error);
    if (opening_ || e == QSerialPort::NoError || !port_->isOpen())
        return;
    switch (e) {
    case QSerialPort::ReadError:
    case QSerialPort::ResourceError: {
        const QString detail = port_->errorString();
        port_->close();
        emit lost(detail);
        return;
    }
    case QSerialPort::WriteError:
        emit lineEvent(CommEvent::TransmitFull);
        return;
    default:
        emit lineEvent(CommEvent::PortSettings);
        return;
    }
}

std::unique_ptr<SerialLink> makeQtSerialLink() {
    return std::make_unique<QtSerialLink>();
}

QStringList serialPortCandidates() {
    QStringList ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        ports << info.systemLocation();
    for (int i = 0; i < 4; ++i)
        ports << QStringLiteral("/dev/ttyS%1").arg(i);
    const QDir dev(QStringLiteral("/dev"));
    const QStringList usb = dev.entryList({QStringLiteral("ttyUSB*"), QStringLiteral("ttyACM*")},
                                          QDir::System, QDir::Name);
    for (const QString& name : usb)
        ports << dev.filePath(name);
    ports.removeDuplicates();
    ports.removeIf([](const QString& p) { return !QFileInfo::exists(p); });
    return ports;
}

} // namespace mervak
