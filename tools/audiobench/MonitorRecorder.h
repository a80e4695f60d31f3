#pragma once

#include <QString>
#include <atomic>
#include <chrono>
#include <thread>

struct pa_simple;

namespace mervak::bench {

// Reads a PulseAudio sink's monitor on a thread of its own, in fragments of
// about 2 ms, and notes when the first sample louder than a threshold arrives
// after arm().
class MonitorRecorder {
public:
    using Clock = std::chrono::steady_clock;

    MonitorRecorder() = default;
    ~MonitorRecorder();
    MonitorRecorder(const MonitorRecorder&) = delete;
    MonitorRecorder& operator=(const MonitorRecorder&) = delete;

    // False, with PulseAudio's reason, when the monitor cannot be opened.
    bool open(const char* source, QString* error);
    void arm();
    // The time of the first loud sample since arm(); unset until it comes.
    bool heard(Clock::time_point* at) const;
    // True while nothing loud has come for `quietMs`.
    bool quietFor(int quietMs) const;

private:
    void record();

    pa_simple* stream_ = nullptr;
    std::thread thread_;
    std::atomic<bool> stopping_{false};
    std::atomic<bool> armed_{false};
    std::atomic<Clock::rep> firstLoud_{0};
    std::atomic<Clock::rep> lastLoud_{0};
};

} // namespace mervak::bench
