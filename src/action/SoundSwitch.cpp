#include "action/SoundSwitch.h"

namespace mervak {

QString SoundSwitch::mutedText(Language language) {
    return TranslateCaption(language,
                            QStringLiteral("Aquesta àrea sonaria o parlaria, però «So actiu» està "
                                           "desactivat (menú Plantilla)."));
}

void SoundSwitch::play(const QString& path, Kind kind, std::function<void(QString error)> done) {
    if (soundOn_())
        return sound_.play(path, kind, std::move(done));
    done(mutedText(language_));
}

QString SoundSwitch::speak(const QString& text, int speaker) {
    return soundOn_() ? speech_.speak(text, speaker) : mutedText(language_);
}

QString SoundSwitch::readFile(const QString& options) {
    return soundOn_() ? speech_.readFile(options) : mutedText(language_);
}

} // namespace mervak
