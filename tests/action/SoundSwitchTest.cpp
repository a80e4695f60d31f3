#include "action/SoundSwitch.h"

#include "support/EffectLog.h"
#include "support/FakeSound.h"
#include "support/FakeSpeech.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

// Sounds and speech go through while "So actiu" is on; off, nothing is heard and
// each one says why, in the interface language.
TEST(SoundSwitch, OffSilencesSoundsAndSpeechAndSaysSo) {
    const struct {
        bool on;
        Language language;
        const char* effects;
        const char* said;
    } cases[] = {
        {true, Language::Catalan, "sound wave a.WAV|speak 2 hola|read-file /F:t.txt", ""},
        {false, Language::Catalan, "",
         "Aquesta àrea sonaria o parlaria, però «So actiu» està desactivat (menú Plantilla)."},
        {false, Language::Spanish, "",
         "Esta área sonaría o hablaría, pero «Activar sonido» está desactivado (menú Plantilla)."},
    };
    for (const auto& c : cases) {
        test::EffectLog log;
        test::FakeSound sound(&log);
        test::FakeSpeech speech(&log);
        SoundSwitch soundSwitch(sound, speech, [&c] { return c.on; });
        soundSwitch.setLanguage(c.language);
        QStringList said;
        soundSwitch.play(QStringLiteral("a.WAV"), SoundOutput::Kind::Wave,
                         [&said](const QString& error) { said << error; });
        said << soundSwitch.speak(QStringLiteral("hola"), 2)
             << soundSwitch.readFile(QStringLiteral("/F:t.txt"));
        log.lines.removeAll(QStringLiteral("sound done"));
        EXPECT_EQ(log.lines.join(u'|'), QString::fromUtf8(c.effects)) << c.on;
        said.removeAll(QString());
        said.removeDuplicates();
        EXPECT_EQ(said.join(u'|'), QString::fromUtf8(c.said)) << c.on;
    }
}

} // namespace
} // namespace mervak
