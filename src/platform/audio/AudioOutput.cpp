#include "platform/audio/AudioOutput.h"

#include <QAudioSink>
#include <QMediaDevices>
#include <algorithm>
#include <vector>

namespace mervak {

namespace {

constexpr int kPumpMs = 5;
// What PulseAudio keeps beyond the sink's own buffer, so that a track is over
// for the listener when it is reported over.
constexpr int kServerLatencyMs = 20;

qint64 bytesToMs(qint64 bytes) {
    return bytes * 1000 / (qint64{AudioOutput::kSampleRate} * AudioOutput::kFrameBytes);
}

} // namespace

AudioOutput::AudioOutput() {
    pumpTimer_.setTimerType(Qt::PreciseTimer);
    pumpTimer_.setInterval(kPumpMs);
    connect(&pumpTimer_, &QTimer::timeout, this, &AudioOutput::pump);
}

AudioOutput::~AudioOutput() {
    tracks_.clear();
    if (sink_)
        sink_->stop();
}

bool AudioOutput::openSink() {
    if (sink_ && sink_->error() != QAudio::OpenError && sink_->error() != QAudio::FatalError)
        return true;
    sink_.reset();
    device_ = nullptr;
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull())
        return false;
    QAudioFormat format;
    format.setSampleRate(kSampleRate);
    format.setChannelCount(kChannels);
    format.setSampleFormat(QAudioFormat::Int16);
    sink_ = std::make_unique<QAudioSink>(device, format);
    sink_->setBufferSize(kSampleRate * kFrameBytes * kBufferMs / 1000);
    device_ = sink_->start();
    if (!device_ || sink_->error() == QAudio::OpenError || sink_->error() == QAudio::FatalError) {
        sink_.reset();
        device_ = nullptr;
        return false;
    }
    return true;
}

AudioOutput::TrackId AudioOutput::start(const QByteArray& samples, bool open, Done done) {
    if (!openSink()) {
        done(Outcome::NoDevice);
        return 0;
    }
    if (std::none_of(tracks_.begin(), tracks_.end(), [](const Track& t) { return !t.drained; }))
        sinceLastWrite_.restart();
    tracks_.push_back(Track{++lastId_, samples, 0, open, false, false, {}, 0, std::move(done)});
    const TrackId id = lastId_;
    pump();
    return id;
}

void AudioOutput::append(TrackId track, const QByteArray& samples) {
    if (Track* t = find(track)) {
        t->samples.append(samples);
        pump();
    }
}

void AudioOutput::close(TrackId track) {
    if (Track* t = find(track)) {
        t->open = false;
        pump();
    }
}

void AudioOutput::stop(TrackId track) {
    const auto it = std::find_if(tracks_.begin(), tracks_.end(),
                                 [track](const Track& t) { return t.id == track; });
    if (it != tracks_.end())
        end(it, Outcome::Stopped);
}

void AudioOutput::setPaused(TrackId track, bool paused) {
    if (Track* t = find(track))
        t->paused = paused;
}

bool AudioOutput::playing(TrackId track) const {
    return std::any_of(tracks_.begin(), tracks_.end(),
                       [track](const Track& t) { return t.id == track; });
}

qsizetype AudioOutput::waiting(TrackId track) const {
    const auto it = std::find_if(tracks_.begin(), tracks_.end(),
                                 [track](const Track& t) { return t.id == track; });
    return it == tracks_.end() ? 0 : it->samples.size() - it->position;
}

AudioOutput::Track* AudioOutput::find(TrackId track) {
    const auto it = std::find_if(tracks_.begin(), tracks_.end(),
                                 [track](const Track& t) { return t.id == track; });
    return it == tracks_.end() ? nullptr : &*it;
}

void AudioOutput::pump() {
    if (!sink_ || sink_->error() == QAudio::OpenError || sink_->error() == QAudio::FatalError ||
        sink_->error() == QAudio::IOError)
        return failAll(Outcome::DeviceLost);
    const bool waiting = std::any_of(tracks_.begin(), tracks_.end(), [](const Track& t) {
        return !t.paused && t.position < t.samples.size();
    });
    const qint64 free = sink_->bytesFree() / kFrameBytes * kFrameBytes;
    if (waiting && free > 0) {
        const QByteArray samples = mix(free);
        device_->write(samples);
        sinceLastWrite_.restart();
    } else if (waiting && sinceLastWrite_.elapsed() > kStallMs) {
        return failAll(Outcome::DeviceLost);
    }
    finishHeardTracks();
    if (tracks_.empty())
        pumpTimer_.stop();
    else if (!pumpTimer_.isActive())
        pumpTimer_.start();
}

// Sums every playing track into `bytes` at most, clipped to 16 bits. A track
// that has handed over its last sample is heard once the samples queued before
// it have played.
QByteArray AudioOutput::mix(qsizetype bytes) {
    const qint64 queued = sink_->bufferSize() - sink_->bytesFree();
    qsizetype length = 0;
    for (const Track& t : tracks_)
        if (!t.paused)
            length = std::max(length, std::min(bytes, t.samples.size() - t.position));
    std::vector<int> sum(static_cast<std::size_t>(length / 2), 0);
    for (Track& t : tracks_) {
        if (t.paused || t.drained)
            continue;
        const qsizetype taken = std::min(length, t.samples.size() - t.position);
        const auto* from = reinterpret_cast<const qint16*>(t.samples.constData() + t.position);
        for (qsizetype i = 0; i < taken / 2; ++i)
            sum[static_cast<std::size_t>(i)] += from[i];
        t.position += taken;
        if (!t.open && t.position == t.samples.size()) {
            t.drained = true;
            t.samples.clear();
            t.position = 0;
            t.heardAfterMs = bytesToMs(std::max<qint64>(queued, 0) + taken) + kServerLatencyMs;
            t.heardAfter.start();
        }
    }
    QByteArray out(length, Qt::Uninitialized);
    auto* to = reinterpret_cast<qint16*>(out.data());
    for (std::size_t i = 0; i < sum.size(); ++i)
        to[i] = static_cast<qint16>(std::clamp(sum[i], -32768, 32767));
    return out;
}

// The callbacks run once the list is settled: one may start the next sound.
void AudioOutput::finishHeardTracks() {
    std::list<Track> heard;
    for (auto it = tracks_.begin(); it != tracks_.end();) {
        const auto next = std::next(it);
        if (it->drained && it->heardAfter.elapsed() >= it->heardAfterMs)
            heard.splice(heard.end(), tracks_, it);
        it = next;
    }
    for (Track& t : heard)
        if (t.done)
            t.done(Outcome::Heard);
}

void AudioOutput::failAll(Outcome outcome) {
    sink_.reset();
    device_ = nullptr;
    pumpTimer_.stop();
    std::list<Track> failed;
    failed.swap(tracks_);
    for (Track& t : failed)
        if (t.done)
            t.done(outcome);
}

void AudioOutput::end(std::list<Track>::iterator track, Outcome outcome) {
    Done done = std::move(track->done);
    tracks_.erase(track);
    if (done)
        done(outcome);
}

} // namespace mervak
