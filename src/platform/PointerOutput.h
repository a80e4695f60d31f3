#pragma once

#include <QPoint>

namespace mervak {

// Synthetic pointer events in the classic absolute form: a position scaled to
// 0..65535 across the screen and a word of event flags.
namespace PointerFlag {
constexpr unsigned Move = 0x0001;
constexpr unsigned LeftDown = 0x0002;
constexpr unsigned LeftUp = 0x0004;
constexpr unsigned RightDown = 0x0008;
constexpr unsigned RightUp = 0x0010;
constexpr unsigned Absolute = 0x8000;
} // namespace PointerFlag

class PointerOutput {
public:
    virtual ~PointerOutput() = default;

    // The pointer's position on the screen, in pixels.
    virtual QPoint position() = 0;

    // Moves the pointer and presses or releases buttons as the flags say, moving first.
    virtual void send(unsigned flags, int absoluteX, int absoluteY) = 0;
};

} // namespace mervak
