#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <functional>
#include <list>
#include <memory>

class QAudioSink;
class QIODevice;

namespace mervak {

// The program's one audio output, shared by speech and wave sounds: 44.1 kHz
// stereo signed 16-bit samples, the tracks mixed here and pushed to a QAudioSink
// that stays open once opened, so a new sound starts within a few milliseconds.
// A track ends when its last sample has been heard, not when it was handed over.
// Nothing waits forever: no device fails at once, and a device that takes no
// samples for kStallMs fails every track.
class AudioOutput : public QObject {
    Q_OBJECT
public:
    static constexpr int kSampleRate = 44100;
    static constexpr int kChannels = 2;
    static constexpr int kFrameBytes = 4;
    static constexpr int kBufferMs = 50;
    static constexpr int kStallMs = 2000;

    enum class Outcome { Heard, Stopped, NoDevice, DeviceLost };
    using Done = std::function<void(Outcome)>;
    using TrackId = quint64;

    AudioOutput();
    ~AudioOutput() override;

    // Starts a track with its first samples (whole frames of the output format).
    // `open` tracks take more with append() until close(). Returns 0, after
    // calling `done` with NoDevice, when there is no audio output.
    TrackId start(const QByteArray& samples, bool open, Done done);
    void append(TrackId track, const QByteArray& samples);
    void close(TrackId track);
    // Ends the track at once: `done` gets Stopped.
    void stop(TrackId track);
    void setPaused(TrackId track, bool paused);
    bool playing(TrackId track) const;
    // The bytes of the track not yet handed to the device.
    qsizetype waiting(TrackId track) const;

private:
    struct Track {
        TrackId id;
        QByteArray samples;
        qsizetype position = 0;
        bool open = false;
        bool paused = false;
        bool drained = false;
        QElapsedTimer heardAfter;
        qint64 heardAfterMs = 0;
        Done done;
    };

    bool openSink();
    void pump();
    QByteArray mix(qsizetype bytes);
    void finishHeardTracks();
    void failAll(Outcome outcome);
    Track* find(TrackId track);
    void end(std::list<Track>::iterator track, Outcome outcome);

    std::unique_ptr<QAudioSink> sink_;
    QIODevice* device_ = nullptr;
    std::list<Track> tracks_;
    TrackId lastId_ = 0;
    QTimer pumpTimer_;
    QElapsedTimer sinceLastWrite_;
};

} // namespace mervak
