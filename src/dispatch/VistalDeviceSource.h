#pragma once

#include "devices/PressPoint.h"
#include "dispatch/DeviceSource.h"
#include "session/Session.h"
#include "tracker/PerspectiveMapping.h"

#include <functional>

namespace mervak {

// The colour tracker's position slot. Timer3 fills it from the tracker's latest
// position through the perspective mapping; Timer1 reads it, a press when both
// coordinates are non-zero.
//
// With a dwell time, a reading over an Area is a press only once the marker has
// rested on that Area so long: an unsteady hand that crosses other Areas on its
// way does not fire them.
class VistalDeviceSource : public DeviceSource {
public:
    // The tracker's VSTObtenirPosicio: status 1 with a camera position.
    using Position = std::function<int(int16_t& x, int16_t& y)>;
    using MonotonicMs = std::function<int64_t()>;

    VistalDeviceSource(Position position, const PerspectiveMapping& mapping, const Session& session,
                       MonotonicMs now);

    // One Timer3 tick. Throws Overflow16 or MappingFault when the mapping fails;
    // the slot is then empty.
    void poll();
    DeviceReading read() override;

    void setDwellMs(int dwellMs) { dwellMs_ = dwellMs; }
    PressPoint slot() const { return slot_; }

private:
    Position position_;
    const PerspectiveMapping& mapping_;
    const Session& session_;
    MonotonicMs now_;
    PressPoint slot_;
    int dwellMs_ = 0;
    int16_t restingArea_ = 0;
    int64_t restingSince_ = 0;
};

} // namespace mervak
