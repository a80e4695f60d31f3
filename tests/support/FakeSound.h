#pragma once

#include "platform/SoundOutput.h"
#include "support/EffectLog.h"

#include <QList>

namespace mervak::test {

// Plays nothing. Logs "sound wave <path>" or "sound midi <path>", and
// "sound done" when a play ends: from the event loop, or when released while
// plays are held. Each play ends with the error set by setError (empty: success).
class FakeSound : public SoundOutput {
public:
    explicit FakeSound(EffectLog* log = nullptr) : log_(log) {}

    void setError(const QString& error) { error_ = error; }
    void holdPlays(bool hold) { hold_ = hold; }
    void releasePlays();
    qsizetype heldPlays() const { return held_.size(); }

    void play(const QString& path, Kind kind, std::function<void(QString error)> done) override;

private:
    void finish(const std::function<void(QString)>& done);

    EffectLog* log_;
    QString error_;
    bool hold_ = false;
    QList<std::function<void(QString)>> held_;
};

} // namespace mervak::test
