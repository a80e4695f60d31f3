#include "action/dryrun/DryRunSpeech.h"

namespace mervak {

QString DryRunSpeech::speak(const QString& text, int speaker) {
    log_.write(DryRunLine("speak").add("text", text).add("speaker", speaker));
    return {};
}

QString DryRunSpeech::readFile(const QString& options) {
    log_.write(DryRunLine("speak").add("options", options));
    return {};
}

} // namespace mervak
