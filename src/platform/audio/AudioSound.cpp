#include "platform/audio/AudioSound.h"

#include "platform/audio/AudioMessages.h"
#include "platform/audio/WaveFile.h"

#include <QFile>
#include <QFileInfo>
#include <QTimer>

namespace mervak {

void AudioSound::play(const QString& path, Kind kind, std::function<void(QString error)> done) {
    if (!QFileInfo(path).isFile())
        return finish(std::move(done), Message(language_, Msg::FileNotFound) + path);
    if (kind == Kind::Midi)
        return finish(std::move(done), midiProblem(midi_.play(path), path));
    const QString problem = playWave(path, done);
    if (!problem.isEmpty())
        finish(std::move(done), problem);
}

// Empty once the sound plays; `done` then follows when it has been heard.
QString AudioSound::playWave(const QString& path, std::function<void(QString)> done) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Message(language_, Msg::ReadError) + path;
    const WaveSamples wave = decodeWave(file.readAll());
    switch (wave.problem) {
    case WaveSamples::Problem::None:
        break;
    case WaveSamples::Problem::NotWave:
    case WaveSamples::Problem::Broken:
        return TranslateCaption(language_, QStringLiteral("No és un fitxer WAV vàlid: ")) + path;
    case WaveSamples::Problem::UnsupportedCodec:
        return TranslateCaption(language_,
                                QStringLiteral("Format de so no admès (només PCM de 8, 16, 24 o "
                                               "32 bits), format %1: "))
                   .arg(wave.codec) +
               path;
    }
    output_.start(wave.samples, false,
                  [this, path, done = std::move(done)](AudioOutput::Outcome outcome) {
                      finish(done, audioProblem(language_, outcome, path));
                  });
    return {};
}

QString AudioSound::midiProblem(MidiPlayer::Problem problem, const QString& path) const {
    switch (problem) {
    case MidiPlayer::Problem::None:
        return {};
    case MidiPlayer::Problem::NoDevice:
        return audioProblem(language_, AudioOutput::Outcome::NoDevice, path);
    case MidiPlayer::Problem::NoSoundFont:
        return TranslateCaption(language_,
                                QStringLiteral("No hi ha cap SoundFont General MIDI per a ")) +
               path;
    case MidiPlayer::Problem::NotMidi:
        return TranslateCaption(language_, QStringLiteral("No és un fitxer MIDI vàlid: ")) + path;
    }
    return {};
}

// From the event loop, as the interface promises, even when it is known at once.
void AudioSound::finish(std::function<void(QString)> done, const QString& problem) {
    QTimer::singleShot(0, &context_, [done = std::move(done), problem] { done(problem); });
}

bool AudioSound::setClick(const QByteArray& wave) {
    const WaveSamples samples = decodeWave(wave);
    if (samples.problem != WaveSamples::Problem::None)
        return false;
    click_ = samples.samples;
    return true;
}

void AudioSound::click() {
    if (!click_.isEmpty())
        output_.start(click_, false, [](AudioOutput::Outcome) {});
}

} // namespace mervak
