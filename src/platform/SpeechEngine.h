#pragma once

#include <QString>

namespace mervak {

// The operations of a speech engine, one for one with those of the closed engine
// the program was first written for. Speeds are in words per minute.
class SpeechEngine {
public:
    virtual ~SpeechEngine() = default;

    // Initialises the engine: true when it can speak both Catalan and Spanish.
    virtual bool start() = 0;
    // Chooses the language by the character code of its first letter: 99 ("c")
    // Catalan, 101 ("e") Spanish; any other code leaves the language as it was.
    // The voice becomes the language's first.
    virtual void setLanguage(int characterCode) = 0;
    // The voices of the current language, its variants included.
    virtual int speakerCount() const = 0;
    virtual QString speakerName(int index) const = 0;
    // An index outside 0..speakerCount()-1 leaves the voice as it was.
    virtual void setSpeaker(int index) = 0;
    virtual void setSpeed(int wordsPerMinute) = 0;
    // Starts speaking the text and returns at once; a new text interrupts the one
    // being spoken. Returns why it cannot be heard (no audio output), in plain
    // words; empty when it is.
    virtual QString read(const QString& text) = 0;
    virtual void pause() = 0;
    virtual void resume() = 0;
    virtual void stop() = 0;
    // True from read() until the last sample has been heard, or until stop().
    virtual bool speaking() const = 0;
};

} // namespace mervak
