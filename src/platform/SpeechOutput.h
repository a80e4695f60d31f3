#pragma once

#include <QString>

namespace mervak {

class SpeechOutput {
public:
    virtual ~SpeechOutput() = default;
    // True when a speech engine was found at start.
    virtual bool available() const = 0;
    // Speaks the text with the given voice; does not wait for the end. Returns
    // why it cannot be heard (no audio output), in plain words; empty when it is.
    virtual QString speak(const QString& text, int speaker) = 0;
    // Reads a file aloud with the reader's option text ("/I:c /L:1 /V:100 /F:x");
    // returns as speak() does.
    virtual QString readFile(const QString& options) = 0;
};

} // namespace mervak
