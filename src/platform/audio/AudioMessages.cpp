#include "platform/audio/AudioMessages.h"

namespace mervak {

QString audioProblem(Language language, AudioOutput::Outcome outcome, const QString& what) {
    switch (outcome) {
    case AudioOutput::Outcome::Heard:
    case AudioOutput::Outcome::Stopped:
        return {};
    case AudioOutput::Outcome::NoDevice:
        return TranslateCaption(language, QStringLiteral("No hi ha sortida de so: ")) + what;
    case AudioOutput::Outcome::DeviceLost:
        return TranslateCaption(language, QStringLiteral("S'ha perdut la sortida de so: ")) + what;
    }
    return {};
}

} // namespace mervak
