#pragma once

#include "platform/Language.h"
#include "platform/SpeechEngine.h"
#include "platform/audio/AudioOutput.h"

#include <QByteArray>
#include <QObject>
#include <QStringList>

namespace mervak {

// espeak-ng through libespeak-ng, in synchronous mode: its samples go to the
// audio output as they are made. A text is made one sentence at a time, each
// from the event loop, so a long file never holds the window up. The speakers of
// a language are its espeak-ng voices followed by the first voice with each of
// espeak-ng's variants. Only one engine may exist: espeak-ng is one per process.
class EspeakEngine : public SpeechEngine {
public:
    explicit EspeakEngine(AudioOutput& output);
    ~EspeakEngine() override;

    // The language of the problems read() reports.
    void setMessageLanguage(Language language) { messages_ = language; }

    bool start() override;
    void setLanguage(int characterCode) override;
    int speakerCount() const override { return static_cast<int>(speakers_.size()); }
    QString speakerName(int index) const override;
    void setSpeaker(int index) override;
    void setSpeed(int wordsPerMinute) override;
    QString read(const QString& text) override;
    void pause() override;
    void resume() override;
    void stop() override;
    bool speaking() const override;

    // The voices of a language ("ca", "es"), its variants included, by name.
    QStringList speakerNames(const QByteArray& language) const;

private:
    struct Speaker {
        QByteArray voice; // the name espeak-ng selects it by, "ca" or "ca+m3"
        QString name;
    };

    QList<Speaker> speakersOf(const QByteArray& language) const;
    void synthesise(quint64 utterance);
    void receive(const short* samples, int count);

    AudioOutput& output_;
    Language messages_ = Language::Catalan;
    bool started_ = false;
    int sampleRate_ = 0;
    QList<Speaker> speakers_;
    QList<QPair<QByteArray, QString>> variants_;
    // The installed voices' names and own languages, listed once: each listing reads
    // every voice file.
    QList<QPair<QByteArray, QByteArray>> voices_;
    int wordsPerMinute_ = 175;
    AudioOutput::TrackId track_ = 0;
    AudioOutput::Outcome outcome_ = AudioOutput::Outcome::Heard;
    quint64 utterance_ = 0;
    QStringList pending_;
    bool speaking_ = false;
    QObject context_; // the sentences still to make are dropped with the engine
};

} // namespace mervak
