#include "platform/audio/MidiPlayer.h"

#include <QFileInfo>
#include <fluidsynth.h>
#include <vector>

namespace mervak {

namespace {

constexpr int kAheadMs = 100;
constexpr int kFeedMs = 20;
constexpr int kBlockFrames = 512;
// fluidsynth's default of 0.2 leaves a single instrument barely audible.
constexpr double kGain = 0.6;

constexpr const char* kSoundFonts[] = {
    "/usr/share/sounds/sf2/default-GM.sf2",
    "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/sounds/sf2/FluidR3_GM.sf2",
};

} // namespace

MidiPlayer::MidiPlayer(AudioOutput& output) : output_(output) {
    feeder_.setInterval(kFeedMs);
    QObject::connect(&feeder_, &QTimer::timeout, [this] { feed(); });
}

MidiPlayer::~MidiPlayer() {
    stop();
    if (synth_)
        delete_fluid_synth(synth_);
    if (settings_)
        delete_fluid_settings(settings_);
}

QString MidiPlayer::soundFont() {
    for (const char* path : kSoundFonts)
        if (QFileInfo(QString::fromLatin1(path)).isReadable())
            return QString::fromLatin1(path);
    return {};
}

// Without an audio driver the player keeps time by the samples rendered.
bool MidiPlayer::startSynth() {
    if (synth_)
        return true;
    const QByteArray font = soundFont().toLocal8Bit();
    if (font.isEmpty())
        return false;
    fluid_set_log_function(FLUID_WARN, nullptr, nullptr);
    fluid_set_log_function(FLUID_INFO, nullptr, nullptr);
    settings_ = new_fluid_settings();
    fluid_settings_setnum(settings_, "synth.sample-rate", AudioOutput::kSampleRate);
    fluid_settings_setstr(settings_, "player.timing-source", "sample");
    fluid_settings_setnum(settings_, "synth.gain", kGain);
    synth_ = new_fluid_synth(settings_);
    if (synth_ && fluid_synth_sfload(synth_, font.constData(), 1) != FLUID_FAILED)
        return true;
    if (synth_)
        delete_fluid_synth(synth_);
    delete_fluid_settings(settings_);
    synth_ = nullptr;
    settings_ = nullptr;
    return false;
}

MidiPlayer::Problem MidiPlayer::play(const QString& path) {
    stop();
    const QByteArray file = QFileInfo(path).absoluteFilePath().toLocal8Bit();
    if (!fluid_is_midifile(file.constData()))
        return Problem::NotMidi;
    if (!startSynth())
        return Problem::NoSoundFont;
    // The feeder notices the track's end by itself; the outcome is called long
    // after this function, so it must hold on to nothing of it.
    track_ = output_.start({}, true, [](AudioOutput::Outcome) {});
    if (track_ == 0)
        return Problem::NoDevice;
    output_.setPaused(track_, true);
    player_ = new_fluid_player(synth_);
    fluid_player_add(player_, file.constData());
    fluid_player_play(player_);
    feed();
    output_.setPaused(track_, false);
    feeder_.start();
    return Problem::None;
}

QByteArray MidiPlayer::render(int frames) {
    QByteArray samples(qsizetype{frames} * AudioOutput::kFrameBytes, Qt::Uninitialized);
    fluid_synth_write_s16(synth_, frames, samples.data(), 0, 2, samples.data(), 1, 2);
    return samples;
}

// The player reports its end seconds after the last note; the music is over as
// soon as the last tick has passed and no voice sounds any more.
bool MidiPlayer::finished() const {
    const int total = fluid_player_get_total_ticks(player_);
    return fluid_player_get_status(player_) != FLUID_PLAYER_PLAYING ||
           (total > 0 && fluid_player_get_current_tick(player_) >= total &&
            fluid_synth_get_active_voice_count(synth_) == 0);
}

void MidiPlayer::feed() {
    if (!output_.playing(track_))
        return stop();
    const qsizetype ahead = AudioOutput::kSampleRate * AudioOutput::kFrameBytes * kAheadMs / 1000;
    while (output_.waiting(track_) < ahead && !finished())
        output_.append(track_, render(kBlockFrames));
    if (finished()) {
        feeder_.stop();
        output_.close(track_);
    }
}

void MidiPlayer::stop() {
    feeder_.stop();
    if (player_) {
        fluid_player_stop(player_);
        delete_fluid_player(player_);
        player_ = nullptr;
        fluid_synth_system_reset(synth_);
    }
    output_.stop(std::exchange(track_, 0));
}

bool MidiPlayer::playing() const {
    return output_.playing(track_);
}

} // namespace mervak
