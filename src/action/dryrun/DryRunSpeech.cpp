#include "action/dryrun/DryRunSpeech.h"

namespace mervak {

void DryRunSpeech::speak(const QString& text, int speaker) {
    log_.write(DryRunLine("speak").add("text", text).add("speaker", speaker));
}

void DryRunSpeech::readFile(const QString& options) {
    log_.write(DryRunLine("speak").add("options", options));
}

} // namespace mervak
