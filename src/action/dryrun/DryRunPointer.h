#pragma once

#include "action/dryrun/DryRunLog.h"
#include "platform/PointerOutput.h"

#include <QSize>

namespace mervak {

// Moves nothing. Each event is one "mouse" effect: "actions" in the order the
// real pointer performs them ("move", then "left-down", "left-up",
// "right-down", "right-up"), the pixel "x" and "y" the event lands on and the
// "absolute_x" and "absolute_y" it was given (0..65535 across the screen). The
// pretend pointer starts in the middle of the screen and follows the moves.
class DryRunPointer : public PointerOutput {
public:
    DryRunPointer(DryRunLog& log, QSize screen);

    QPoint position() override { return position_; }
    void send(unsigned flags, int absoluteX, int absoluteY) override;

private:
    DryRunLog& log_;
    QSize screen_;
    QPoint position_;
};

} // namespace mervak
