#pragma once

#include <QString>

namespace mervak {

class SpeechOutput {
public:
    virtual ~SpeechOutput() = default;
    // True when a speech engine was found at start.
    virtual bool available() const = 0;
    // Speaks the text with the given voice settings; does not wait for the end.
    virtual void speak(const QString& text, int speaker) = 0;
    // Starts the external reader on a file with its option text ("/I:c /L:1 /V:100 /F:x").
    virtual void readFile(const QString& options) = 0;
};

} // namespace mervak
