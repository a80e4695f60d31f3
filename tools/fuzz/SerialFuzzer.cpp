#include "PropertyCheck.h"
#include "devices/EasyPacket.h"

#include <cstddef>
#include <cstdint>

using namespace mervak;

// Any read of the serial tablet decodes to the first "^" and, when a whole
// packet follows it, a position on the tablet or (0, 0).
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const EasyReceive received = decodeEasyRead(bytes);
    const qsizetype marker = bytes.indexOf('^') + 1;
    fuzzCheck(received.rxMarker == (marker <= INT16_MAX ? marker : 0), "wrong marker");
    fuzzCheck(received.position.has_value() ==
                  (received.rxMarker > 0 && bytes.size() - received.rxMarker >= 2),
              "a position without a whole packet, or none with one");
    if (received.position)
        fuzzCheck(received.position->x >= 0 && received.position->x <= kEasyMaxCoordinate &&
                      received.position->y >= 0 && received.position->y <= kEasyMaxCoordinate,
                  "a position off the tablet");
    return 0;
}
