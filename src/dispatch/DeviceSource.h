#pragma once

#include <cstdint>

namespace mervak {

// One poll of the selected input device, in sheet units.
struct DeviceReading {
    bool status = false; // false: no pen, no press
    int16_t x = -1;
    int16_t y = -1;
};

// The position slot of the device model in use.
class DeviceSource {
public:
    virtual ~DeviceSource() = default;
    virtual DeviceReading read() = 0;
};

// A model with no driver on this system: never a press.
class NoDevice : public DeviceSource {
public:
    DeviceReading read() override { return {}; }
};

} // namespace mervak
