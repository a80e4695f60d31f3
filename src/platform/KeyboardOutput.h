#pragma once

#include "platform/KeyStroke.h"

#include <functional>

namespace mervak {

// Types keys into whichever window has the input focus.
class KeyboardOutput {
public:
    virtual ~KeyboardOutput() = default;

    // Types the strokes in order. Returns false, with a reason in plain words,
    // when they could not all be sent (no display, no spare keycode).
    virtual bool type(const KeyStrokes& strokes, QString* error) = 0;

    // Calls `done` from the event loop once the focused client has had every key
    // sent so far delivered: the "waiting" of a waiting send. Never blocks.
    virtual void flush(std::function<void()> done) = 0;
};

} // namespace mervak
