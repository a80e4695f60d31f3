#include "support/FakeKeyboard.h"

#include "action/SendKeysParser.h"

#include <QTimer>

namespace mervak::test {

QString FakeKeyboard::describe(const KeyStrokes& strokes) {
    QString text;
    for (const KeyStroke& stroke : strokes)
        text += SendKeysParser::notation(stroke);
    return text;
}

std::optional<TypingError> FakeKeyboard::type(const KeyStrokes& strokes) {
    if (failure_)
        return failure_;
    typed_.append(strokes);
    logTo(log_, QStringLiteral("type ") + describe(strokes));
    return std::nullopt;
}

void FakeKeyboard::flush(std::function<void()> done) {
    ++flushes_;
    logTo(log_, QStringLiteral("flush"));
    if (hold_)
        held_.append(std::move(done));
    else
        QTimer::singleShot(0, std::move(done));
}

void FakeKeyboard::releaseFlushes() {
    const auto held = std::exchange(held_, {});
    for (const auto& done : held)
        done();
}

} // namespace mervak::test
