#pragma once

#include "devices/EasyTablet.h"
#include "dispatch/DeviceSource.h"
#include "platform/Checked16.h"

#include <functional>

namespace mervak {

// The serial tablet's position slot; a press when X * Y, in 16-bit arithmetic,
// is not 0.
class EasyDeviceSource : public DeviceSource {
public:
    explicit EasyDeviceSource(const EasyTablet& tablet) : tablet_(tablet) {}

    DeviceReading read() override { return reading(tablet_.easyPosition()); }

    static DeviceReading reading(PressPoint position) {
        return {mul16(position.x, position.y) != 0, position.x, position.y};
    }

private:
    const EasyTablet& tablet_;
};

// The position slot of a model read from evdev, with the serial tablet's rule.
class SlotDeviceSource : public DeviceSource {
public:
    explicit SlotDeviceSource(std::function<PressPoint()> slot) : slot_(std::move(slot)) {}

    DeviceReading read() override { return EasyDeviceSource::reading(slot_()); }

private:
    std::function<PressPoint()> slot_;
};

} // namespace mervak
