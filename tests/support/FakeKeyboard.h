#pragma once

#include "platform/KeyboardOutput.h"
#include "support/EffectLog.h"

#include <QList>
#include <functional>

namespace mervak::test {

// Records typed strokes and flushes. Logs "type <strokes>", the strokes in
// send-keys notation (modifiers "+^%", then "{NAME}", "{+}" or the character),
// and "flush". A flush ends
// from the event loop, or when released while flushes are held.
class FakeKeyboard : public KeyboardOutput {
public:
    explicit FakeKeyboard(EffectLog* log = nullptr) : log_(log) {}

    std::optional<TypingError> type(const KeyStrokes& strokes) override;
    void flush(std::function<void()> done) override;

    // Every later type() fails with this error; nothing makes it succeed again.
    void setFailure(std::optional<TypingError> error) { failure_ = std::move(error); }
    // While held, flushes wait for releaseFlushes().
    void holdFlushes(bool hold) { hold_ = hold; }
    void releaseFlushes();
    qsizetype heldFlushes() const { return held_.size(); }

    const QList<KeyStrokes>& typed() const { return typed_; }
    int flushes() const { return flushes_; }

    // "+a", "^{ENTER}", "b": how the log writes strokes.
    static QString describe(const KeyStrokes& strokes);

private:
    EffectLog* log_;
    std::optional<TypingError> failure_;
    bool hold_ = false;
    QList<std::function<void()>> held_;
    QList<KeyStrokes> typed_;
    int flushes_ = 0;
};

} // namespace mervak::test
