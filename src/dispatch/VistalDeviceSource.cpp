#include "dispatch/VistalDeviceSource.h"

#include "template/AreaHitTest.h"

namespace mervak {

VistalDeviceSource::VistalDeviceSource(Position position, const PerspectiveMapping& mapping,
                                       const Session& session, MonotonicMs now)
    : position_(std::move(position)), mapping_(mapping), session_(session), now_(std::move(now)) {}

void VistalDeviceSource::poll() {
    int16_t x = 0;
    int16_t y = 0;
    const int status = position_(x, y);
    slot_ = {};
    const SheetCell cell = mapping_.cameraToSheet(status, x, y);
    slot_ = {cell.x, cell.y};
}

DeviceReading VistalDeviceSource::read() {
    DeviceReading reading{slot_.x != 0 && slot_.y != 0, slot_.x, slot_.y};
    if (dwellMs_ <= 0)
        return reading;
    const int16_t area = reading.status ? FindArea(session_.tmpl, reading.x, reading.y).index : 0;
    const int64_t now = now_();
    if (area != restingArea_) {
        restingArea_ = area;
        restingSince_ = now;
    }
    if (area != 0 && now - restingSince_ < dwellMs_)
        reading.status = false;
    return reading;
}

} // namespace mervak
