#pragma once

#include "platform/audio/AudioOutput.h"

#include <QString>
#include <QTimer>

struct _fluid_hashtable_t;
struct _fluid_synth_t;
struct _fluid_player_t;

namespace mervak {

// MIDI files through libfluidsynth with a General MIDI SoundFont, rendered a
// little ahead of the audio output, in the background. A new file replaces the
// one playing. The SoundFont is loaded the first time a file plays.
class MidiPlayer {
public:
    enum class Problem { None, NoDevice, NoSoundFont, NotMidi };

    explicit MidiPlayer(AudioOutput& output);
    ~MidiPlayer();
    MidiPlayer(const MidiPlayer&) = delete;
    MidiPlayer& operator=(const MidiPlayer&) = delete;

    // The SoundFont used: Debian's default General MIDI one, else the first found.
    static QString soundFont();

    Problem play(const QString& path);
    void stop();
    bool playing() const;

private:
    bool startSynth();
    bool finished() const;
    QByteArray render(int frames);
    void feed();

    AudioOutput& output_;
    _fluid_hashtable_t* settings_ = nullptr;
    _fluid_synth_t* synth_ = nullptr;
    _fluid_player_t* player_ = nullptr;
    AudioOutput::TrackId track_ = 0;
    QTimer feeder_;
};

} // namespace mervak
