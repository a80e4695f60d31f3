#include "support/FakeSound.h"

#include <QTimer>

namespace mervak::test {

void FakeSound::play(const QString& path, Kind kind, std::function<void(QString error)> done) {
    logTo(log_,
          (kind == Kind::Wave ? QStringLiteral("sound wave ") : QStringLiteral("sound midi ")) +
              path);
    if (hold_)
        return held_.append(std::move(done));
    QTimer::singleShot(0, [this, done = std::move(done)] { finish(done); });
}

void FakeSound::releasePlays() {
    const auto held = std::exchange(held_, {});
    for (const auto& done : held)
        finish(done);
}

void FakeSound::finish(const std::function<void(QString)>& done) {
    logTo(log_, QStringLiteral("sound done"));
    done(error_);
}

} // namespace mervak::test
