#pragma once

#include "platform/PointerOutput.h"

namespace mervak {

class X11Connection;

// The pixel an absolute coordinate (0..65535 across `extent` pixels) stands for: the
// exact inverse of scaling a pixel by 65535 / extent and rounding, kept on the screen.
int pixelFromAbsolute(int absolute, int extent);

// Moves the pointer and presses its buttons with XTest, on the connection the
// keyboard uses, so pointer and key events reach the server in the order made.
class X11Pointer : public PointerOutput {
public:
    // The connection must outlive the pointer.
    explicit X11Pointer(X11Connection& connection);

    // (0, 0) when the display is gone.
    QPoint position() override;
    // Without PointerFlag::Absolute a move is relative, in pixels. Buttons follow
    // the move in the order left down, left up, right down, right up.
    void send(unsigned flags, int absoluteX, int absoluteY) override;

private:
    X11Connection& connection_;
};

} // namespace mervak
