#pragma once

#include "action/dryrun/DryRunLog.h"
#include "platform/SpeechOutput.h"

namespace mervak {

// Says nothing, and is always available. Speaking is one "speak" effect with
// the "text" and the "speaker" number; reading a file aloud is one "speak"
// effect with the reader's "options" ("/I:c /L:1 /V:100 /F:/path/file.txt").
class DryRunSpeech : public SpeechOutput {
public:
    explicit DryRunSpeech(DryRunLog& log) : log_(log) {}

    bool available() const override { return true; }
    QString speak(const QString& text, int speaker) override;
    QString readFile(const QString& options) override;

private:
    DryRunLog& log_;
};

} // namespace mervak
