#include "action/Speech.h"

#include "platform/TextEncoding.h"

#include <QFile>
#include <cmath>

namespace mervak {

namespace {

// The value of "/X:" up to the next blank; "/F:" takes the rest, blanks and all.
QString option(const QString& options, QChar letter) {
    const QString marker = QStringLiteral("/%1:").arg(letter);
    const qsizetype at = options.indexOf(marker, 0, Qt::CaseInsensitive);
    if (at < 0)
        return {};
    const QString rest = options.mid(at + marker.size());
    if (letter == u'F')
        return rest.trimmed();
    return rest.section(u' ', 0, 0);
}

int optionNumber(const QString& options, QChar letter, int absent) {
    bool ok = false;
    const int value = option(options, letter).toInt(&ok);
    return ok ? value : absent;
}

} // namespace

bool Speech::StartSpeech() {
    available_ = engine_.start();
    if (!available_)
        return false;
    SpeechSpeed = 100;
    SpeechRateFactor = 1.1;
    SpeakerIndex = -1;
    SetSpeechLanguage(QStringLiteral("catalan"));
    NextSpeaker();
    return true;
}

void Speech::SetSpeechLanguage(const QString& name) {
    engine_.setLanguage(name.isEmpty() ? 0 : name.at(0).unicode());
    SpeakerCount = engine_.speakerCount();
}

void Speech::NextSpeaker() {
    SpeakerIndex = static_cast<int16_t>(SpeakerIndex + 1);
    if (SpeakerIndex >= SpeakerCount)
        SpeakerIndex = 0;
    engine_.setSpeaker(SpeakerIndex);
}

int Speech::applyTemplate(int16_t language, int16_t speaker, int16_t speed) {
    if (!available_)
        return 0;
    templateLanguage_ = language == 1 ? u'e' : u'c';
    templateWordsPerMinute_ = wordsPerMinute(speed);
    SetSpeechLanguage(language == 1 ? QStringLiteral("espanhol") : QStringLiteral("catalan"));
    SpeakerIndex = speaker >= 0 && speaker < SpeakerCount ? speaker : 0;
    engine_.setSpeaker(SpeakerIndex);
    engine_.setSpeed(templateWordsPerMinute_);
    readerChangedVoice_ = false;
    return SpeakerIndex;
}

int Speech::wordsPerMinute(int speed, double factor) {
    const int percent = speed > 0 ? speed : 100;
    return static_cast<int>(std::lround(kNormalWordsPerMinute * percent / 100.0 * factor));
}

QString Speech::speak(const QString& text, int speaker) {
    if (!available_)
        return {};
    engine_.resume();
    restoreTemplateVoice();
    engine_.setSpeaker(speaker);
    return engine_.read(text);
}

// A file read aloud leaves its language and speed behind; the next LLEGIR goes
// back to the Template's.
void Speech::restoreTemplateVoice() {
    if (!readerChangedVoice_)
        return;
    engine_.setLanguage(templateLanguage_);
    engine_.setSpeed(templateWordsPerMinute_);
    readerChangedVoice_ = false;
}

QString Speech::readFile(const QString& options) {
    if (!available_)
        return {};
    QFile file(option(options, u'F'));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = decodeFileText(file.readAll()).text;
    const QString language = option(options, u'I').toLower();
    engine_.resume();
    engine_.setLanguage(language.isEmpty() ? templateLanguage_ : language.at(0).unicode());
    engine_.setSpeaker(optionNumber(options, u'L', 1) - 1);
    engine_.setSpeed(wordsPerMinute(optionNumber(options, u'V', 100), SpeechRateFactor));
    readerChangedVoice_ = true;
    const QString problem = engine_.read(text);
    if (problem.isEmpty() && readerShown_)
        readerShown_(text);
    return problem;
}

} // namespace mervak
