#include "LatencySummary.h"

#include <algorithm>
#include <cmath>

namespace mervak::bench {

namespace {

// The smallest value with at least `fraction` of the set at or below it.
double nearestRank(const std::vector<double>& sorted, double fraction) {
    const auto rank = static_cast<std::size_t>(std::ceil(fraction * double(sorted.size())));
    return sorted[std::clamp<std::size_t>(rank, 1, sorted.size()) - 1];
}

} // namespace

LatencySummary summarize(std::vector<double> microseconds) {
    if (microseconds.empty())
        return {};
    std::sort(microseconds.begin(), microseconds.end());
    return {microseconds.size(), nearestRank(microseconds, 0.50), nearestRank(microseconds, 0.90),
            nearestRank(microseconds, 0.99), microseconds.back()};
}

} // namespace mervak::bench
