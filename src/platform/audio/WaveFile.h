#pragma once

#include <QByteArray>
#include <cstdint>

namespace mervak {

// Samples in the audio output's format (44.1 kHz, stereo, signed 16-bit), made by
// linear interpolation from `frames` frames of `channels` interleaved samples at
// `rate`. Mono is doubled; channels beyond two are dropped.
QByteArray toOutputSamples(const int16_t* samples, qsizetype frames, int channels, int rate);

struct WaveSamples {
    enum class Problem { None, NotWave, UnsupportedCodec, Broken };
    Problem problem = Problem::None;
    int codec = 0; // the format tag, for UnsupportedCodec
    QByteArray samples;
};

// A RIFF WAVE file of PCM samples, 8-bit unsigned or 16-, 24- or 32-bit signed,
// any channel count and rate, converted for the audio output.
WaveSamples decodeWave(const QByteArray& file);

} // namespace mervak
