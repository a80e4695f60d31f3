#pragma once

#include <functional>

namespace mervak::test {

// Lets the event loop run until `condition` holds; false when it never did
// within `timeoutMs`. A bound for what hangs, never a measure of speed.
bool waitFor(const std::function<bool()>& condition, int timeoutMs = 10000);

} // namespace mervak::test
