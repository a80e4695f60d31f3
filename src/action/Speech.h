#pragma once

#include "platform/SpeechEngine.h"
#include "platform/SpeechOutput.h"

#include <QString>
#include <cstdint>
#include <functional>

namespace mervak {

// The program-wide speech state and the speech commands, over a speech engine.
// Speeds are percentages of the engine's normal rate: 100 is normal, 0 or less
// counts as 100. SpeechRateFactor applies to files read aloud (LLEGEIX) only: a
// whole text read at the pace that suits single words drags.
class Speech : public SpeechOutput {
public:
    static constexpr int kNormalWordsPerMinute = 175;

    explicit Speech(SpeechEngine& engine) : engine_(engine) {}

    // Start-up: finds the engine and chooses Catalan and its first voice. True
    // when speech is available; the Template's speech fields then become 0, 0, 100.
    bool StartSpeech();
    // By the character code of the name's first character ("catalan" 99, "espanhol" 101).
    void SetSpeechLanguage(const QString& name);
    // The next voice of the language, back to the first after the last.
    void NextSpeaker();
    // The Template's sv_idioma (0 Catalan, 1 Spanish), sv_locutor and SV_velocitat,
    // when it opens and when its properties are accepted. Returns the voice chosen:
    // sv_locutor, or 0 when the language has no such voice.
    int applyTemplate(int16_t language, int16_t speaker, int16_t speed);

    static int wordsPerMinute(int speed, double factor = 1.0);

    bool available() const override { return available_; }
    // LLEGIR: resume, choose the voice, read.
    QString speak(const QString& text, int speaker) override;
    // LLEGEIX "/I:c /L:1 /V:100 /F:file": the language letter, the voice counted
    // from 1, the speed, and the file, read as a text file. Missing options keep
    // the Template's language, the first voice and speed 100.
    QString readFile(const QString& options) override;

    // Shows each text LLEGEIX reads aloud; unset, nothing is shown.
    void setReaderShown(std::function<void(const QString& text)> shown) {
        readerShown_ = std::move(shown);
    }

    int SpeakerCount = 0;
    int16_t SpeakerIndex = -1;
    int16_t SpeechSpeed = 0;
    double SpeechRateFactor = 0.0;

private:
    void restoreTemplateVoice();

    SpeechEngine& engine_;
    bool available_ = false;
    int templateLanguage_ = u'c';
    int templateWordsPerMinute_ = kNormalWordsPerMinute;
    bool readerChangedVoice_ = false;
    std::function<void(const QString&)> readerShown_;
};

} // namespace mervak
