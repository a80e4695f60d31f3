#pragma once

#include <cstddef>
#include <vector>

namespace mervak::bench {

// Percentiles of a set of latencies, nearest-rank; all in microseconds.
struct LatencySummary {
    std::size_t count = 0;
    double p50 = 0;
    double p90 = 0;
    double p99 = 0;
    double max = 0;
};

// An empty set gives count 0 and zeros.
LatencySummary summarize(std::vector<double> microseconds);

} // namespace mervak::bench
