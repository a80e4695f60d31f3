#pragma once

#include "LatencySummary.h"

#include <vector>

namespace mervak::bench {

// One measured press: its latency and how long each process on its way waited,
// runnable, for a CPU meanwhile (a loaded machine's share). Microseconds.
struct PressTiming {
    double latencyUs = 0;
    double mervakWaitUs = 0;  // Mervak's main thread
    double xServerWaitUs = 0; // 0 when the X server was not found
    double benchWaitUs = 0;   // this process, which receives the KeyPress
};

// Where the time of the presses went.
struct WaitBreakdown {
    LatencySummary ownWork; // latency less the three waits: the work itself, and sleeps
    int slowPresses = 0;    // latency over the threshold given
    double slowMeanLatencyUs = 0;
    double slowMeanMervakWaitUs = 0;
    double slowMeanXServerWaitUs = 0;
    double slowMeanBenchWaitUs = 0;
};

WaitBreakdown breakdown(const std::vector<PressTiming>& presses, double slowUs);

} // namespace mervak::bench
