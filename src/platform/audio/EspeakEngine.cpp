#include "platform/audio/EspeakEngine.h"

#include "platform/audio/AudioMessages.h"
#include "platform/audio/WaveFile.h"

#include <QRegularExpression>
#include <QTimer>
#include <algorithm>
#include <espeak-ng/speak_lib.h>

namespace mervak {

namespace {

// Samples come back every kChunkMs of speech, the first ones well before the
// sentence is made.
constexpr int kChunkMs = 10;
constexpr int kMinimumRate = 80;
constexpr int kMaximumRate = 450;

EspeakEngine* receiver = nullptr;

QByteArray languageCode(int characterCode) {
    if (characterCode == u'c')
        return "ca";
    if (characterCode == u'e')
        return "es";
    return {};
}

bool speaks(const QByteArray& ownLanguage, const QByteArray& language) {
    return ownLanguage == language || ownLanguage.startsWith(language + '-');
}

// Sentences, each with the punctuation that ends it, so that the first is heard
// while the rest are still to be made.
QStringList sentences(const QString& text) {
    static const QRegularExpression end(QStringLiteral("(?<=[.;:!?\\n])"));
    QStringList parts = text.split(end, Qt::SkipEmptyParts);
    parts.removeIf([](const QString& part) { return part.trimmed().isEmpty(); });
    return parts;
}

} // namespace

EspeakEngine::EspeakEngine(AudioOutput& output) : output_(output) {}

EspeakEngine::~EspeakEngine() {
    stop();
    if (started_)
        espeak_Terminate();
    if (receiver == this)
        receiver = nullptr;
}

bool EspeakEngine::start() {
    if (started_)
        return true;
    sampleRate_ = espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, kChunkMs, nullptr, 0);
    if (sampleRate_ <= 0)
        return false;
    receiver = this;
    espeak_SetSynthCallback([](short* samples, int count, espeak_EVENT*) {
        if (receiver && samples && count > 0)
            receiver->receive(samples, count);
        return 0;
    });
    espeak_VOICE variants{};
    variants.languages = "variant";
    for (const espeak_VOICE** v = espeak_ListVoices(&variants); v && *v; ++v) {
        const QByteArray identifier((*v)->identifier);
        variants_.append(
            {identifier.mid(identifier.lastIndexOf('/') + 1), QString::fromUtf8((*v)->name)});
    }
    // A voice's languages are a priority byte and a name, repeated; the first is its own.
    for (const espeak_VOICE** v = espeak_ListVoices(nullptr); v && *v; ++v)
        voices_.append({QByteArray((*v)->name), QByteArray((*v)->languages + 1)});
    started_ = !speakersOf("ca").isEmpty() && !speakersOf("es").isEmpty();
    if (started_)
        setLanguage(u'c');
    else
        espeak_Terminate();
    return started_;
}

QList<EspeakEngine::Speaker> EspeakEngine::speakersOf(const QByteArray& language) const {
    QList<Speaker> speakers;
    for (const auto& [name, ownLanguage] : voices_)
        if (speaks(ownLanguage, language))
            speakers.append({name, QString::fromUtf8(name)});
    if (speakers.isEmpty())
        return speakers;
    const Speaker first = speakers.first();
    for (const auto& [variant, name] : variants_)
        speakers.append({first.voice + '+' + variant, first.name + QStringLiteral(" + ") + name});
    return speakers;
}

QStringList EspeakEngine::speakerNames(const QByteArray& language) const {
    QStringList names;
    for (const Speaker& speaker : speakersOf(language))
        names.append(speaker.name);
    return names;
}

void EspeakEngine::setLanguage(int characterCode) {
    const QByteArray code = languageCode(characterCode);
    if (!started_ || code.isEmpty())
        return;
    speakers_ = speakersOf(code);
    setSpeaker(0);
}

QString EspeakEngine::speakerName(int index) const {
    return index >= 0 && index < speakers_.size() ? speakers_[index].name : QString();
}

// A voice brings its own rate: the chosen speed is set again after it.
void EspeakEngine::setSpeaker(int index) {
    if (!started_ || index < 0 || index >= speakers_.size())
        return;
    espeak_SetVoiceByName(speakers_[index].voice.constData());
    espeak_SetParameter(espeakRATE, wordsPerMinute_, 0);
}

void EspeakEngine::setSpeed(int wordsPerMinute) {
    wordsPerMinute_ = std::clamp(wordsPerMinute, kMinimumRate, kMaximumRate);
    if (started_)
        espeak_SetParameter(espeakRATE, wordsPerMinute_, 0);
}

QString EspeakEngine::read(const QString& text) {
    stop();
    pending_ = sentences(text);
    if (!started_ || pending_.isEmpty())
        return {};
    const quint64 utterance = ++utterance_;
    speaking_ = true;
    track_ = output_.start({}, true, [this, utterance](AudioOutput::Outcome outcome) {
        outcome_ = outcome;
        if (utterance == utterance_)
            speaking_ = false;
    });
    if (track_ == 0) {
        pending_.clear();
        return audioProblem(messages_, outcome_, text);
    }
    synthesise(utterance);
    return {};
}

void EspeakEngine::synthesise(quint64 utterance) {
    if (utterance != utterance_ || pending_.isEmpty())
        return;
    const QByteArray sentence = pending_.takeFirst().toUtf8();
    espeak_Synth(sentence.constData(), static_cast<size_t>(sentence.size()) + 1, 0, POS_CHARACTER,
                 0, espeakCHARS_UTF8, nullptr, nullptr);
    if (pending_.isEmpty())
        return output_.close(track_);
    QTimer::singleShot(0, &context_, [this, utterance] { synthesise(utterance); });
}

void EspeakEngine::receive(const short* samples, int count) {
    output_.append(track_, toOutputSamples(samples, count, 1, sampleRate_));
}

void EspeakEngine::pause() {
    output_.setPaused(track_, true);
}

void EspeakEngine::resume() {
    output_.setPaused(track_, false);
}

void EspeakEngine::stop() {
    pending_.clear();
    ++utterance_;
    speaking_ = false;
    output_.stop(std::exchange(track_, 0));
}

bool EspeakEngine::speaking() const {
    return speaking_;
}

} // namespace mervak
