#pragma once

#include "devices/InputCapabilities.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace mervak::sim {

// Writes an evemu recording of a simulated device from a script of presses:
//   press X Y [MS]    tablet, touch or joystick: the sheet point X, Y (1..119,
//                     Y upwards) held MS milliseconds (default 100), then lifted
//   button N [MS]     dance pad or joystick: button N (from 1) held MS milliseconds
//   wait MS           nothing happens for MS milliseconds
// Blank lines and lines starting with "#" are no commands.
class EvemuScript {
public:
    enum class Device { Tablet, Touch, Joystick, DancePad };

    explicit EvemuScript(Device device);
    static bool deviceNamed(const QString& name, Device* device);

    // False, with `error` in plain words, for a line that is not a command.
    bool add(const QString& line, QString* error);
    QByteArray recording() const { return recording_; }

private:
    void frame(std::initializer_list<InputEvent> events);
    int32_t axisValue(int code, int sheetUnits, bool upwards) const;

    Device device_;
    InputCapabilities capabilities_;
    QByteArray recording_;
    int64_t nowUs_ = 0;
};

} // namespace mervak::sim
