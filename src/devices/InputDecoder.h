#pragma once

#include "devices/InputCapabilities.h"
#include "devices/PressPoint.h"
#include "devices/SheetFrame.h"
#include "platform/PrivateProfile.h"

#include <QPoint>
#include <array>
#include <optional>
#include <vector>

namespace mervak {

// The cell, 1..9 row by row from the top-left (0: none), that each dance-pad
// button presses, by button number 1..kDancePadButtons. The defaults fit the common
// pads (1 left, 2 down, 3 up, 4 right, 5..8 the corners, 9 and 10 the centre,
// 13..16 the arrows of pads behind a console adapter); section [DANCEPAD] of
// MERVAK.INI changes any of them with keys Boto1.. (for example Boto9=0).
constexpr int kDancePadButtons = 32;
using DancePadCells = std::array<int8_t, kDancePadButtons + 1>;
DancePadCells readDancePadCells(const PrivateProfile& file);

// Turns the events of one evdev device into presses on the sheet. A reading ends
// with each SYN_REPORT.
// - Pointing: a press while the pen or finger touches inside the frame; a pen in
//   proximity only is no press. With several fingers the first one down counts,
//   until it lifts; the others count again only after all have lifted.
// - Joystick: the stick points into the frame (clamped); a press while a button is held.
// - Dance pad: the centre of the cell of the button last pressed and still held,
//   or of the hat's direction.
class InputDecoder {
public:
    InputDecoder(InputKind kind, const InputCapabilities& capabilities, const SheetFrame& frame,
                 const DancePadCells& cells);

    // The device's whole active area: its axes' ranges.
    static SheetFrame wholeArea(InputKind kind, const InputCapabilities& capabilities);

    // True when the event ended a reading that changed the press or the pointer.
    bool feed(const InputEvent& event);

    // The position slot: (0, 0) when nothing is pressed.
    PressPoint press() const { return press_; }
    // Where the device points, pressed or not; (0, 0) outside the sheet.
    PressPoint pointer() const { return pointer_; }
    // The device's own reading while it touches or a button is held, inside the
    // frame or not: what a calibration takes for a corner. None for a dance pad.
    std::optional<QPoint> contact() const { return contact_; }

private:
    struct Contact {
        int32_t trackingId = -1;
        int32_t x = 0;
        int32_t y = 0;
        uint64_t order = 0; // when it touched down
    };

    void onKey(int code, int32_t value);
    void onAxis(int code, int32_t value);
    bool endReading();
    void readPointing();
    void readTouches();
    void readJoystick();
    void readDancePad();

    InputKind kind_;
    InputCapabilities capabilities_;
    SheetFrame frame_;
    DancePadCells cells_;
    bool multitouch_;
    std::array<int32_t, ABS_CNT> axes_{};
    std::bitset<KEY_CNT> held_;
    std::vector<int> heldButtons_; // dance pad, in the order pressed
    std::vector<Contact> contacts_;
    int slot_ = 0;
    uint64_t touches_ = 0;
    int primary_ = -1;
    bool waitForAllUp_ = false;
    PressPoint press_;
    PressPoint pointer_;
    std::optional<QPoint> contact_;
};

} // namespace mervak
