#pragma once

#include <QString>

namespace mervak {

// Event codes of the serial port, numbered as the tablet's original driver
// numbered them.
namespace CommEvent {
constexpr int Send = 1;
constexpr int Receive = 2;
constexpr int CtsChange = 3;
constexpr int DsrChange = 4;
constexpr int CdChange = 5;
constexpr int Ring = 6;
constexpr int EndOfFile = 7;
constexpr int Break = 1001;
constexpr int CtsTimeout = 1002;
constexpr int DsrTimeout = 1003;
constexpr int Framing = 1004;
constexpr int Overrun = 1006;
constexpr int CdTimeout = 1007;
constexpr int ReceiveOverflow = 1008;
constexpr int Parity = 1009;
constexpr int TransmitFull = 1010;
constexpr int PortSettings = 1011; // the port could not be configured
} // namespace CommEvent

// Which pending-message slot an event fills: a status shows as a caption, an
// error only beeps.
enum class CommSlot { Status, Error };

struct CommEventInfo {
    QString text;
    CommSlot slot;
};

// The message of any event other than send and receive. Framing and parity
// errors are status messages, not errors: kept that way on purpose.
CommEventInfo commEventInfo(int code);

} // namespace mervak
