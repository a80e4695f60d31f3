#include "devices/InputCapabilities.h"

namespace mervak {

namespace {

bool hasAnyKey(const InputCapabilities& capabilities, int first, int last) {
    for (int code = first; code <= last; ++code)
        if (capabilities.hasKey(code))
            return true;
    return false;
}

bool hasStickButtons(const InputCapabilities& capabilities) {
    return hasAnyKey(capabilities, BTN_JOYSTICK, BTN_THUMBR) ||
           hasAnyKey(capabilities, BTN_TRIGGER_HAPPY, BTN_TRIGGER_HAPPY40);
}

bool hasPlane(const InputCapabilities& capabilities) {
    return (capabilities.hasAxis(ABS_X) && capabilities.hasAxis(ABS_Y)) ||
           (capabilities.hasAxis(ABS_MT_POSITION_X) && capabilities.hasAxis(ABS_MT_POSITION_Y));
}

// A laptop touchpad moves the desktop pointer; grabbing it would take the mouse away.
bool isTouchpad(const InputCapabilities& capabilities) {
    return capabilities.hasKey(BTN_TOOL_FINGER) && !capabilities.hasKey(BTN_TOOL_PEN) &&
           !capabilities.properties.test(INPUT_PROP_DIRECT);
}

} // namespace

std::optional<InputKind> inputKindOfModel(const QString& model) {
    if (model == QLatin1String("DIL") || model == QLatin1String("GENIUS"))
        return InputKind::Pointing;
    if (model == QLatin1String("TRUSTMASTER"))
        return InputKind::Joystick;
    if (model == QLatin1String("DANCEPAD"))
        return InputKind::DancePad;
    return std::nullopt;
}

bool servesAs(const InputCapabilities& capabilities, InputKind kind) {
    switch (kind) {
    case InputKind::Pointing:
        return hasPlane(capabilities) && !hasStickButtons(capabilities) &&
               !isTouchpad(capabilities) &&
               (capabilities.hasKey(BTN_TOUCH) || capabilities.hasKey(BTN_TOOL_PEN) ||
                capabilities.hasKey(BTN_LEFT));
    case InputKind::Joystick:
        return capabilities.hasAxis(ABS_X) && capabilities.hasAxis(ABS_Y) &&
               hasStickButtons(capabilities);
    case InputKind::DancePad:
        return hasStickButtons(capabilities);
    }
    return false;
}

int buttonNumber(const InputCapabilities& capabilities, int code) {
    int number = 0;
    for (int candidate = BTN_JOYSTICK; candidate < KEY_CNT; ++candidate)
        if (capabilities.hasKey(candidate)) {
            ++number;
            if (candidate == code)
                return number;
        }
    for (int candidate = BTN_MISC; candidate < BTN_JOYSTICK; ++candidate)
        if (capabilities.hasKey(candidate)) {
            ++number;
            if (candidate == code)
                return number;
        }
    return 0;
}

} // namespace mervak
