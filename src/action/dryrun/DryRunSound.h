#pragma once

#include "action/dryrun/DryRunLog.h"
#include "platform/SoundOutput.h"

namespace mervak {

// Plays nothing. Each sound is one "sound" effect with its "file" and "kind"
// ("wave" or "midi"); it ends at once, from the event loop (a QCoreApplication
// must exist).
class DryRunSound : public SoundOutput {
public:
    explicit DryRunSound(DryRunLog& log) : log_(log) {}

    void play(const QString& path, Kind kind, std::function<void(QString error)> done) override;

private:
    DryRunLog& log_;
};

} // namespace mervak
