#pragma once

#include "devices/SerialLink.h"

#include <QStringList>

class QSerialPort;

namespace mervak {

// The serial link on QSerialPort. How the port's errors become link signals:
//   read error, resource error (device gone)   -> lost(), after closing the port
//   write error                                -> lineEvent(TransmitFull)
//   any other error while open                 -> lineEvent(PortSettings), "unknown"
// Line-state changes, breaks, framing and parity errors are not reported by
// QSerialPort, so those events never occur.
class QtSerialLink : public SerialLink {
    Q_OBJECT
public:
    explicit QtSerialLink(QObject* parent = nullptr);
    ~QtSerialLink() override;

    OpenResult open(const QString& devicePath) override;
    bool isOpen() const override;
    void write(const QByteArray& bytes) override;
    void close() override;

private:
    void onError(int error);

    QSerialPort* port_;
    bool opening_ = false;
};

std::unique_ptr<SerialLink> makeQtSerialLink();

// Every serial port of the machine worth probing, each once, in this order: the
// ports the system lists, /dev/ttyS0../dev/ttyS3, then /dev/ttyUSB* and
// /dev/ttyACM*. Only device files that exist are given.
QStringList serialPortCandidates();

} // namespace mervak
