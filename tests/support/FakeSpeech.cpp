#include "support/FakeSpeech.h"

namespace mervak::test {

QString FakeSpeech::speak(const QString& text, int speaker) {
    logTo(log_, QStringLiteral("speak %1 %2").arg(speaker).arg(text));
    return {};
}

QString FakeSpeech::readFile(const QString& options) {
    logTo(log_, QStringLiteral("read-file ") + options);
    return {};
}

} // namespace mervak::test
