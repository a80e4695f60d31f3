#pragma once

#include <QString>
#include <array>
#include <bitset>
#include <cstdint>
#include <linux/input-event-codes.h>
#include <optional>

namespace mervak {

// One evdev event; `timeUs` counts microseconds from an origin the source picks.
struct InputEvent {
    int64_t timeUs = 0;
    uint16_t type = 0;
    uint16_t code = 0;
    int32_t value = 0;
};

// The range of one absolute axis, as the kernel reports it.
struct AbsAxis {
    int32_t minimum = 0;
    int32_t maximum = 0;
    int32_t value = 0; // the position when the device was opened
};

// What an evdev device can report: enough to decode it and to recognise its kind.
struct InputCapabilities {
    QString name;
    std::bitset<INPUT_PROP_CNT> properties;
    std::bitset<KEY_CNT> keys;
    std::array<std::optional<AbsAxis>, ABS_CNT> axes;

    bool hasKey(int code) const { return code >= 0 && code < KEY_CNT && keys.test(code); }
    bool hasAxis(int code) const { return code >= 0 && code < ABS_CNT && axes[code].has_value(); }
};

// The device families Mervak reads from evdev, each for its models.
enum class InputKind { Pointing, Joystick, DancePad };

// DIL and GENIUS are pointing devices, TRUSTMASTER a joystick, DANCEPAD a dance
// pad; none for the other models.
std::optional<InputKind> inputKindOfModel(const QString& model);

// Whether a device with these capabilities can serve as `kind`: pointing needs
// absolute X and Y with a touch, pen or button (never a laptop touchpad); a
// joystick needs a stick and buttons; a dance pad joystick or gamepad buttons.
bool servesAs(const InputCapabilities& capabilities, InputKind kind);

// Joystick and gamepad buttons in the order joystick tools number them (from 1):
// BTN_JOYSTICK upwards first, then BTN_MISC up to BTN_JOYSTICK.
int buttonNumber(const InputCapabilities& capabilities, int code);

} // namespace mervak
