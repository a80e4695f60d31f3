#include "EvemuScript.h"

#include "devices/EvemuFormat.h"
#include "devices/SheetFrame.h"

#include <QHash>
#include <cmath>

namespace mervak::sim {

namespace {

constexpr int kDefaultHoldMs = 100;
constexpr int kButtons = 12;
constexpr int32_t kTabletMax = 4095;
constexpr int32_t kStickMax = 255;

InputCapabilities capabilitiesOf(EvemuScript::Device device) {
    InputCapabilities c;
    const auto plane = [&c](int x, int y, int32_t maximum) {
        c.axes[x] = AbsAxis{0, maximum, maximum / 2};
        c.axes[y] = AbsAxis{0, maximum, maximum / 2};
    };
    switch (device) {
    case EvemuScript::Device::Tablet:
        c.name = QStringLiteral("Mervak simulated pen tablet");
        c.keys.set(BTN_TOUCH).set(BTN_TOOL_PEN);
        plane(ABS_X, ABS_Y, kTabletMax);
        break;
    case EvemuScript::Device::Touch:
        c.name = QStringLiteral("Mervak simulated touch screen");
        c.keys.set(BTN_TOUCH);
        c.properties.set(INPUT_PROP_DIRECT);
        plane(ABS_X, ABS_Y, kTabletMax);
        plane(ABS_MT_POSITION_X, ABS_MT_POSITION_Y, kTabletMax);
        c.axes[ABS_MT_SLOT] = AbsAxis{0, 9, 0};
        c.axes[ABS_MT_TRACKING_ID] = AbsAxis{0, 65535, 0};
        break;
    case EvemuScript::Device::Joystick:
    case EvemuScript::Device::DancePad:
        c.name = device == EvemuScript::Device::Joystick
                     ? QStringLiteral("Mervak simulated joystick")
                     : QStringLiteral("Mervak simulated dance pad");
        for (int button = 0; button < kButtons; ++button)
            c.keys.set(BTN_JOYSTICK + button);
        plane(ABS_X, ABS_Y, kStickMax);
        break;
    }
    return c;
}

} // namespace

EvemuScript::EvemuScript(Device device)
    : device_(device), capabilities_(capabilitiesOf(device)),
      recording_(evemuHeader(capabilities_)) {}

bool EvemuScript::deviceNamed(const QString& name, Device* device) {
    static const QHash<QString, Device> names = {{QStringLiteral("tablet"), Device::Tablet},
                                                 {QStringLiteral("touch"), Device::Touch},
                                                 {QStringLiteral("joystick"), Device::Joystick},
                                                 {QStringLiteral("dancepad"), Device::DancePad}};
    if (!names.contains(name))
        return false;
    *device = names.value(name);
    return true;
}

// The device reading that the whole-area mapping turns back into `sheetUnits`.
int32_t EvemuScript::axisValue(int code, int sheetUnits, bool upwards) const {
    const double f = double(sheetUnits - kSheetMin) / (kSheetMax - kSheetMin);
    return int32_t(std::lround((upwards ? 1.0 - f : f) * capabilities_.axes[code]->maximum));
}

bool EvemuScript::add(const QString& line, QString* error) {
    const QStringList words = line.simplified().split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty() || words.first().startsWith(u'#'))
        return true;
    QList<int> numbers;
    for (const QString& word : words.mid(1)) {
        bool ok = false;
        numbers.append(word.toInt(&ok));
        if (!ok || numbers.last() < 0)
            return *error = QStringLiteral("\"%1\" is not a whole number").arg(word), false;
    }
    const QString& command = words.first();
    const bool pointing = device_ != Device::DancePad;
    if (command == u"wait" && numbers.size() == 1) {
        nowUs_ += numbers[0] * 1000LL;
    } else if (command == u"press" && pointing && (numbers.size() == 2 || numbers.size() == 3)) {
        if (numbers[0] < kSheetMin || numbers[0] > kSheetMax || numbers[1] < kSheetMin ||
            numbers[1] > kSheetMax)
            return *error = QStringLiteral("X and Y are sheet units 1..119"), false;
        const int32_t x = axisValue(ABS_X, numbers[0], false);
        const int32_t y = axisValue(ABS_Y, numbers[1], true);
        const int holdMs = numbers.value(2, kDefaultHoldMs);
        if (device_ == Device::Tablet) {
            frame({{0, EV_KEY, BTN_TOOL_PEN, 1},
                   {0, EV_ABS, ABS_X, x},
                   {0, EV_ABS, ABS_Y, y},
                   {0, EV_KEY, BTN_TOUCH, 1}});
            nowUs_ += holdMs * 1000LL;
            frame({{0, EV_KEY, BTN_TOUCH, 0}, {0, EV_KEY, BTN_TOOL_PEN, 0}});
        } else if (device_ == Device::Touch) {
            frame({{0, EV_ABS, ABS_MT_TRACKING_ID, 1},
                   {0, EV_ABS, ABS_MT_POSITION_X, x},
                   {0, EV_ABS, ABS_MT_POSITION_Y, y},
                   {0, EV_KEY, BTN_TOUCH, 1},
                   {0, EV_ABS, ABS_X, x},
                   {0, EV_ABS, ABS_Y, y}});
            nowUs_ += holdMs * 1000LL;
            frame({{0, EV_ABS, ABS_MT_TRACKING_ID, -1}, {0, EV_KEY, BTN_TOUCH, 0}});
        } else {
            frame({{0, EV_ABS, ABS_X, x}, {0, EV_ABS, ABS_Y, y}, {0, EV_KEY, BTN_TRIGGER, 1}});
            nowUs_ += holdMs * 1000LL;
            frame({{0, EV_KEY, BTN_TRIGGER, 0}});
        }
    } else if (command == u"button" && device_ >= Device::Joystick &&
               (numbers.size() == 1 || numbers.size() == 2)) {
        if (numbers[0] < 1 || numbers[0] > kButtons)
            return *error = QStringLiteral("buttons are 1..%1").arg(kButtons), false;
        const uint16_t code = uint16_t(BTN_JOYSTICK + numbers[0] - 1);
        frame({{0, EV_KEY, code, 1}});
        nowUs_ += numbers.value(1, kDefaultHoldMs) * 1000LL;
        frame({{0, EV_KEY, code, 0}});
    } else {
        *error = QStringLiteral("not a command for this device: %1").arg(line.simplified());
        return false;
    }
    return true;
}

void EvemuScript::frame(std::initializer_list<InputEvent> events) {
    for (InputEvent event : events) {
        event.timeUs = nowUs_;
        recording_ += evemuEventLine(event);
    }
    recording_ += evemuEventLine({nowUs_, EV_SYN, SYN_REPORT, 0});
}

} // namespace mervak::sim
