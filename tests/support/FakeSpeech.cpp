#include "support/FakeSpeech.h"

namespace mervak::test {

void FakeSpeech::speak(const QString& text, int speaker) {
    logTo(log_, QStringLiteral("speak %1 %2").arg(speaker).arg(text));
}

void FakeSpeech::readFile(const QString& options) {
    logTo(log_, QStringLiteral("read-file ") + options);
}

} // namespace mervak::test
