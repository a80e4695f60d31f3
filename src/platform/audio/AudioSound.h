#pragma once

#include "platform/Language.h"
#include "platform/SoundOutput.h"
#include "platform/audio/AudioOutput.h"
#include "platform/audio/MidiPlayer.h"

#include <QByteArray>
#include <QObject>

namespace mervak {

// Wave sounds through the audio output, ended when heard; MIDI files through the
// MIDI player, ended at once while the music plays on. A file that cannot play
// ends at once with the reason in the program's language.
class AudioSound : public SoundOutput {
public:
    AudioSound(AudioOutput& output, MidiPlayer& midi) : output_(output), midi_(midi) {}

    void setLanguage(Language language) { language_ = language; }
    void play(const QString& path, Kind kind, std::function<void(QString error)> done) override;

    // The press click: a wave file's bytes; it sounds in the background, over
    // whatever else plays, and silently not at all without an audio output.
    // False when the bytes are not a wave file this output plays.
    bool setClick(const QByteArray& wave);
    void click();

private:
    QString playWave(const QString& path, std::function<void(QString)> done);
    QString midiProblem(MidiPlayer::Problem problem, const QString& path) const;
    void finish(std::function<void(QString)> done, const QString& problem);

    AudioOutput& output_;
    MidiPlayer& midi_;
    Language language_ = Language::Catalan;
    QByteArray click_;
    QObject context_;
};

} // namespace mervak
