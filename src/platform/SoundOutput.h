#pragma once

#include <QString>
#include <functional>

namespace mervak {

class SoundOutput {
public:
    virtual ~SoundOutput() = default;
    enum class Kind { Wave, Midi };
    // Starts playing the file. `done` is called from the event loop when it has
    // finished, or at once when it cannot play (no file, no audio output), with a
    // reason in plain words that is empty on success.
    virtual void play(const QString& path, Kind kind, std::function<void(QString error)> done) = 0;
};

} // namespace mervak
