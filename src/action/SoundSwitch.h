#pragma once

#include "platform/Language.h"
#include "platform/SoundOutput.h"
#include "platform/SpeechOutput.h"

#include <functional>

namespace mervak {

// "So actiu" for sounds and speech alike: while it is off, an ActionText's
// sounds and speech are not heard, and each one that would have been says so in
// the status line, so that a silent Area is never a mystery.
class SoundSwitch : public SoundOutput, public SpeechOutput {
public:
    SoundSwitch(SoundOutput& sound, SpeechOutput& speech, std::function<bool()> soundOn)
        : sound_(sound), speech_(speech), soundOn_(std::move(soundOn)) {}

    void setLanguage(Language language) { language_ = language; }

    void play(const QString& path, Kind kind, std::function<void(QString error)> done) override;
    bool available() const override { return speech_.available(); }
    QString speak(const QString& text, int speaker) override;
    QString readFile(const QString& options) override;

    // What the status line says of a sound or speech kept quiet.
    static QString mutedText(Language language);

private:
    SoundOutput& sound_;
    SpeechOutput& speech_;
    std::function<bool()> soundOn_;
    Language language_ = Language::Catalan;
};

} // namespace mervak
