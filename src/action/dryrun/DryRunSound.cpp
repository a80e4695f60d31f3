#include "action/dryrun/DryRunSound.h"

#include <QTimer>

namespace mervak {

void DryRunSound::play(const QString& path, Kind kind, std::function<void(QString error)> done) {
    log_.write(
        DryRunLine("sound").add("file", path).add("kind", kind == Kind::Midi ? "midi" : "wave"));
    QTimer::singleShot(0, [done = std::move(done)] { done(QString()); });
}

} // namespace mervak
