#include "WaitBreakdown.h"

#include <algorithm>

namespace mervak::bench {

WaitBreakdown breakdown(const std::vector<PressTiming>& presses, double slowUs) {
    WaitBreakdown result;
    std::vector<double> ownWork;
    for (const PressTiming& press : presses) {
        const double waits = press.mervakWaitUs + press.xServerWaitUs + press.benchWaitUs;
        // Waits overlapping each other or the time before the write can exceed the latency.
        ownWork.push_back(std::max(0.0, press.latencyUs - waits));
        if (press.latencyUs <= slowUs)
            continue;
        ++result.slowPresses;
        result.slowMeanLatencyUs += press.latencyUs;
        result.slowMeanMervakWaitUs += press.mervakWaitUs;
        result.slowMeanXServerWaitUs += press.xServerWaitUs;
        result.slowMeanBenchWaitUs += press.benchWaitUs;
    }
    result.ownWork = summarize(std::move(ownWork));
    if (result.slowPresses > 0) {
        for (double* mean : {&result.slowMeanLatencyUs, &result.slowMeanMervakWaitUs,
                             &result.slowMeanXServerWaitUs, &result.slowMeanBenchWaitUs})
            *mean /= result.slowPresses;
    }
    return result;
}

} // namespace mervak::bench
