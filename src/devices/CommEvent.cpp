#include "devices/CommEvent.h"

namespace mervak {

CommEventInfo commEventInfo(int code) {
    using S = CommSlot;
    switch (code) {
    case CommEvent::CtsChange:
        return {QStringLiteral("Change in CTS Detected"), S::Status};
    case CommEvent::DsrChange:
        return {QStringLiteral("Change in DSR Detected"), S::Status};
    case CommEvent::CdChange:
        return {QStringLiteral("Change in CD Detected"), S::Status};
    case CommEvent::Ring:
        return {QStringLiteral("The Phone is Ringing"), S::Status};
    case CommEvent::EndOfFile:
        return {QStringLiteral("End of File Detected"), S::Status};
    case CommEvent::Break:
        return {QStringLiteral("Break Received"), S::Status};
    case CommEvent::CtsTimeout:
        return {QStringLiteral("CTS Timeout"), S::Error};
    case CommEvent::DsrTimeout:
        return {QStringLiteral("DSR Timeout"), S::Error};
    case CommEvent::Framing:
        return {QStringLiteral("Framing Error"), S::Status};
    case CommEvent::Overrun:
        return {QStringLiteral("Overrun Error"), S::Error};
    case CommEvent::CdTimeout:
        return {QStringLiteral("Carrier Detect Timeout"), S::Error};
    case CommEvent::ReceiveOverflow:
        return {QStringLiteral("Receive Buffer Overflow"), S::Error};
    case CommEvent::Parity:
        return {QStringLiteral("Parity Error"), S::Status};
    case CommEvent::TransmitFull:
        return {QStringLiteral("Transmit Buffer Full"), S::Error};
    default:
        return {QStringLiteral("Unknown error or event"), S::Error};
    }
}

} // namespace mervak
