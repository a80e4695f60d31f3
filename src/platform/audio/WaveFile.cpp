#include "platform/audio/WaveFile.h"

#include "platform/audio/AudioOutput.h"

#include <QtEndian>
#include <algorithm>
#include <vector>

namespace mervak {

namespace {

constexpr int kPcm = 1;
// Rates outside these are no sound a card plays; a rate of a few hertz would
// also blow a small file up into gigabytes of output samples.
constexpr int kLowestRate = 1000;
constexpr int kHighestRate = 384000;
constexpr int kExtensible = 0xFFFE;

struct Format {
    int codec = 0;
    int channels = 0;
    int rate = 0;
    int bits = 0;
};

quint16 read16(const char* at) {
    return qFromLittleEndian<quint16>(at);
}

quint32 read32(const char* at) {
    return qFromLittleEndian<quint32>(at);
}

Format readFormat(const QByteArray& chunk) {
    Format format;
    if (chunk.size() < 16)
        return format;
    const char* at = chunk.constData();
    format.codec = read16(at);
    format.channels = read16(at + 2);
    format.rate = static_cast<int>(read32(at + 4));
    format.bits = read16(at + 14);
    // WAVE_FORMAT_EXTENSIBLE names its codec in the first two bytes of its sub-format.
    if (format.codec == kExtensible && chunk.size() >= 26)
        format.codec = read16(at + 24);
    return format;
}

// Each sample as signed 16 bits: 8-bit samples are unsigned, wider ones keep their top 16 bits.
std::vector<int16_t> toInt16(const QByteArray& data, int bits) {
    const int width = bits / 8;
    std::vector<int16_t> out(static_cast<std::size_t>(data.size() / width));
    const auto* bytes = reinterpret_cast<const unsigned char*>(data.constData());
    for (std::size_t i = 0; i < out.size(); ++i) {
        const unsigned char* s = bytes + i * static_cast<std::size_t>(width);
        out[i] = width == 1 ? static_cast<int16_t>((s[0] - 128) << 8)
                            : static_cast<int16_t>(s[width - 1] << 8 | s[width - 2]);
    }
    return out;
}

} // namespace

QByteArray toOutputSamples(const int16_t* samples, qsizetype frames, int channels, int rate) {
    if (frames <= 0 || channels <= 0 || rate <= 0)
        return {};
    const qsizetype outFrames = frames * AudioOutput::kSampleRate / rate;
    QByteArray out(outFrames * AudioOutput::kFrameBytes, Qt::Uninitialized);
    auto* to = reinterpret_cast<int16_t*>(out.data());
    const double step = static_cast<double>(rate) / AudioOutput::kSampleRate;
    const int right = std::min(channels, 2) - 1;
    for (qsizetype i = 0; i < outFrames; ++i) {
        const double at = static_cast<double>(i) * step;
        const auto first = static_cast<qsizetype>(at);
        const qsizetype second = std::min(first + 1, frames - 1);
        const double weight = at - static_cast<double>(first);
        for (int c = 0; c < 2; ++c) {
            const int channel = c == 0 ? 0 : right;
            const double a = samples[first * channels + channel];
            const double b = samples[second * channels + channel];
            to[i * 2 + c] = static_cast<int16_t>(a + (b - a) * weight);
        }
    }
    return out;
}

WaveSamples decodeWave(const QByteArray& file) {
    WaveSamples result;
    if (file.size() < 12 || !file.startsWith("RIFF") || file.mid(8, 4) != "WAVE") {
        result.problem = WaveSamples::Problem::NotWave;
        return result;
    }
    Format format;
    QByteArray data;
    for (qsizetype at = 12; at + 8 <= file.size();) {
        const QByteArray id = file.mid(at, 4);
        const qsizetype size = read32(file.constData() + at + 4);
        const QByteArray body = file.mid(at + 8, size);
        if (id == "fmt ")
            format = readFormat(body);
        else if (id == "data")
            data = body;
        at += 8 + size + (size & 1);
    }
    const bool knownWidth =
        format.bits == 8 || format.bits == 16 || format.bits == 24 || format.bits == 32;
    if (format.channels <= 0 || format.rate < kLowestRate || format.rate > kHighestRate ||
        data.isEmpty()) {
        result.problem = WaveSamples::Problem::Broken;
    } else if (format.codec != kPcm || !knownWidth) {
        result.problem = WaveSamples::Problem::UnsupportedCodec;
        result.codec = format.codec;
    } else {
        const std::vector<int16_t> samples = toInt16(data, format.bits);
        result.samples = toOutputSamples(samples.data(),
                                         static_cast<qsizetype>(samples.size()) / format.channels,
                                         format.channels, format.rate);
    }
    return result;
}

} // namespace mervak
