#include "MonitorRecorder.h"

#include <array>
#include <cstdlib>
#include <pulse/error.h>
#include <pulse/simple.h>

namespace mervak::bench {

namespace {

constexpr int kRate = 44100;
constexpr int kFragmentFrames = kRate * 2 / 1000;
constexpr int kLoud = 300; // about -40 dB

} // namespace

MonitorRecorder::~MonitorRecorder() {
    stopping_ = true;
    if (thread_.joinable())
        thread_.join();
    if (stream_)
        pa_simple_free(stream_);
}

bool MonitorRecorder::open(const char* source, QString* error) {
    const pa_sample_spec spec{PA_SAMPLE_S16LE, kRate, 2};
    pa_buffer_attr attributes{};
    attributes.maxlength = static_cast<uint32_t>(-1);
    attributes.fragsize = kFragmentFrames * 4;
    int code = 0;
    stream_ = pa_simple_new(nullptr, "mervak-audio-bench", PA_STREAM_RECORD, source, "monitor",
                            &spec, nullptr, &attributes, &code);
    if (!stream_) {
        *error = QString::fromUtf8(pa_strerror(code));
        return false;
    }
    thread_ = std::thread([this] { record(); });
    return true;
}

void MonitorRecorder::arm() {
    firstLoud_ = 0;
    armed_ = true;
}

bool MonitorRecorder::heard(Clock::time_point* at) const {
    const Clock::rep first = firstLoud_;
    if (first == 0)
        return false;
    *at = Clock::time_point(Clock::duration(first));
    return true;
}

bool MonitorRecorder::quietFor(int quietMs) const {
    const auto last = Clock::time_point(Clock::duration(lastLoud_.load()));
    return Clock::now() - last > std::chrono::milliseconds(quietMs);
}

void MonitorRecorder::record() {
    std::array<int16_t, std::size_t{kFragmentFrames} * 2> samples{};
    int code = 0;
    while (!stopping_) {
        if (pa_simple_read(stream_, samples.data(), sizeof samples, &code) < 0)
            return;
        const Clock::rep now = Clock::now().time_since_epoch().count();
        for (const int16_t sample : samples) {
            if (std::abs(sample) < kLoud)
                continue;
            lastLoud_ = now;
            if (armed_.exchange(false))
                firstLoud_ = now;
            break;
        }
    }
}

} // namespace mervak::bench
