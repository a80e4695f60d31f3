#include "platform/audio/WaveFile.h"

#include <QtEndian>
#include <gtest/gtest.h>

namespace mervak {
namespace {

QByteArray le(quint32 value, int bytes) {
    QByteArray out(bytes, '\0');
    for (int i = 0; i < bytes; ++i)
        out[i] = static_cast<char>(value >> (8 * i));
    return out;
}

// A RIFF WAVE file with one "fmt " chunk and one data chunk.
QByteArray wave(int codec, int channels, int rate, int bits, const QByteArray& data) {
    const QByteArray format = le(codec, 2) + le(channels, 2) + le(rate, 4) +
                              le(rate * channels * bits / 8, 4) + le(channels * bits / 8, 2) +
                              le(bits, 2);
    const QByteArray chunks = "fmt " + le(16, 4) + format + "data" + le(data.size(), 4) + data;
    return "RIFF" + le(chunks.size() + 4, 4) + "WAVE" + chunks;
}

// The output is 44.1 kHz stereo 16-bit: every format lands on the same first frame.
TEST(WaveFile, DecodesPcmOfEveryWidthAndRateIntoTheOutputFormat) {
    using Problem = WaveSamples::Problem;
    const struct {
        const char* name;
        QByteArray file;
        Problem problem;
        qsizetype frames = 0;
        int16_t left = 0, right = 0;
    } cases[] = {
        {"8-bit mono 11025 Hz", wave(1, 1, 11025, 8, QByteArray(100, char(192))), Problem::None,
         400, 16384, 16384},
        {"16-bit stereo 44100 Hz",
         wave(1, 2, 44100, 16, (le(0x4000, 2) + le(0xC000, 2)).repeated(10)), Problem::None, 10,
         16384, -16384},
        {"24-bit mono 22050 Hz", wave(1, 1, 22050, 24, le(0x400000, 3).repeated(10)), Problem::None,
         20, 16384, 16384},
        {"float samples", wave(3, 1, 44100, 32, QByteArray(40, '\0')), Problem::UnsupportedCodec},
        {"4-bit ADPCM", wave(17, 1, 8000, 4, QByteArray(40, '\0')), Problem::UnsupportedCodec},
        {"a rate of 1 Hz", wave(1, 1, 1, 8, QByteArray(100, '\0')), Problem::Broken},
        {"no data", wave(1, 1, 8000, 8, {}), Problem::Broken},
        {"a text file", "hola, no sóc un so", Problem::NotWave},
    };
    for (const auto& c : cases) {
        const WaveSamples decoded = decodeWave(c.file);
        EXPECT_EQ(decoded.problem, c.problem) << c.name;
        if (c.problem != Problem::None)
            continue;
        const auto* samples = reinterpret_cast<const int16_t*>(decoded.samples.constData());
        EXPECT_EQ(decoded.samples.size(), c.frames * 4) << c.name;
        EXPECT_EQ(samples[0], c.left) << c.name;
        EXPECT_EQ(samples[1], c.right) << c.name;
    }
}

} // namespace
} // namespace mervak
