#include "action/SoundSwitch.h"

#include "support/EffectLog.h"
#include "support/FakeSound.h"
#include "support/FakeSpeech.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

// Off, neither sounds nor speech are heard, and each one says why.
TEST(SoundSwitch, OffSilencesSoundsAndSpeechAndSaysSo) {
    const QString muted = QStringLiteral(
        "Aquesta àrea sonaria o parlaria, però «So actiu» està desactivat (menú Plantilla).");
    for (const bool on : {true, false}) {
        test::EffectLog log;
        test::FakeSound sound(&log);
        test::FakeSpeech speech(&log);
        SoundSwitch soundSwitch(sound, speech, [on] { return on; });
        QString played = QStringLiteral("not yet");
        soundSwitch.play(QStringLiteral("a.WAV"), SoundOutput::Kind::Wave,
                         [&played](const QString& error) { played = error; });
        EXPECT_EQ(soundSwitch.speak(QStringLiteral("hola"), 2), on ? QString() : muted);
        EXPECT_EQ(soundSwitch.readFile(QStringLiteral("/F:t.txt")), on ? QString() : muted);
        EXPECT_EQ(log.lines.join(u'|'),
                  on ? QStringLiteral("sound wave a.WAV|speak 2 hola|read-file /F:t.txt") : "");
        EXPECT_EQ(played, on ? QStringLiteral("not yet") : muted) << "played later when on";
    }
}

} // namespace
} // namespace mervak
