#pragma once

#include "platform/PointerOutput.h"
#include "support/EffectLog.h"

#include <QList>
#include <QSize>

namespace mervak::test {

// Records pointer events; logs "pointer <flags in hex> <x> <y>". When told the
// screen size, a move also moves the position it reports, as a real pointer does.
class FakePointer : public PointerOutput {
public:
    struct Event {
        unsigned flags;
        int x;
        int y;
        friend bool operator==(const Event&, const Event&) = default;
    };

    explicit FakePointer(EffectLog* log = nullptr) : log_(log) {}

    void setPosition(const QPoint& position) { position_ = position; }
    void followMoves(const QSize& screen) { screen_ = screen; }
    const QList<Event>& events() const { return events_; }

    QPoint position() override { return position_; }
    void send(unsigned flags, int absoluteX, int absoluteY) override;

private:
    EffectLog* log_;
    QPoint position_;
    QSize screen_;
    QList<Event> events_;
};

} // namespace mervak::test
