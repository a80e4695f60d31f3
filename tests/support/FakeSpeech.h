#pragma once

#include "platform/SpeechOutput.h"
#include "support/EffectLog.h"

namespace mervak::test {

// Speaks nothing. Logs "speak <speaker> <text>" and "read-file <options>".
class FakeSpeech : public SpeechOutput {
public:
    explicit FakeSpeech(EffectLog* log = nullptr) : log_(log) {}

    void setAvailable(bool available) { available_ = available; }

    bool available() const override { return available_; }
    QString speak(const QString& text, int speaker) override;
    QString readFile(const QString& options) override;

private:
    EffectLog* log_;
    bool available_ = true;
};

} // namespace mervak::test
