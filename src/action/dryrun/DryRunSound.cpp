#include "action/dryrun/DryRunSound.h"

#include <QCoreApplication>

namespace mervak {

void DryRunSound::play(const QString& path, Kind kind, std::function<void(QString error)> done) {
    log_.write(
        DryRunLine("sound").add("file", path).add("kind", kind == Kind::Midi ? "midi" : "wave"));
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [done = std::move(done)] { done(QString()); },
        Qt::QueuedConnection);
}

} // namespace mervak
