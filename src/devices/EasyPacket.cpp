#include "devices/EasyPacket.h"

#include "platform/Checked16.h"

namespace mervak {

namespace {

// A Windows-1252 character's code is its byte value.
int16_t characterCode(char byte) {
    return static_cast<int16_t>(static_cast<unsigned char>(byte));
}

int16_t markerOf(const QByteArray& bytes) {
    try {
        return toInt16(bytes.indexOf('^') + 1);
    } catch (const Overflow16&) {
        return 0;
    }
}

} // namespace

EasyReceive decodeEasyRead(const QByteArray& bytes) {
    EasyReceive r;
    r.rxMarker = markerOf(bytes);
    if (r.rxMarker < 1 || bytes.size() - r.rxMarker < 2)
        return r;
    const QByteArray packet = bytes.mid(r.rxMarker - 1);
    int16_t x = characterCode(packet[1]);
    int16_t y = characterCode(packet[2]);
    if (x > kEasyMaxCoordinate || y >= kEasyMaxCoordinate + 1) {
        x = 0;
        y = 0;
    }
    r.position = PressPoint{x, y};
    return r;
}

} // namespace mervak
