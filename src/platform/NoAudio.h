#pragma once

#include "platform/SoundOutput.h"
#include "platform/SpeechOutput.h"

namespace mervak {

// Sound for a system where no audio output is available: every play ends at
// once, from the event loop, with the reason given.
class NoSound : public SoundOutput {
public:
    explicit NoSound(QString reason) : reason_(std::move(reason)) {}
    void play(const QString& path, Kind kind, std::function<void(QString error)> done) override;
    // The reason in the program's language, which may change while it runs.
    void setReason(QString reason) { reason_ = std::move(reason); }

private:
    QString reason_;
};

// Speech for a system without a speech engine: never available.
class NoSpeech : public SpeechOutput {
public:
    bool available() const override { return false; }
    void speak(const QString&, int) override {}
    void readFile(const QString&) override {}
};

} // namespace mervak
