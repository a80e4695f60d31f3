#include "action/dryrun/DryRunPlatform.h"

#include "action/ActionRunner.h"

namespace mervak {

DryRunPlatform::DryRunPlatform(DryRunLog::Sink sink, const DryRunOptions& options)
    : log_(std::move(sink)), windows_(log_, options.targetTitle), clipboard_(options.clipboardText),
      clock_(options.fixedSecondsSinceMidnight) {}

ActionPlatform DryRunPlatform::platform() {
    return {keyboard_, windows_, pointer_, clipboard_, launcher_,
            sound_,    speech_,  clock_,   registry_};
}

void DryRunPlatform::watch(ActionRunner& runner) {
    connect(&runner, &ActionRunner::pendingPageSet, this,
            [this](int page) { log_.write(DryRunLine("page").add("page", page)); });
    connect(&runner, &ActionRunner::pasteStarted, this, &DryRunPlatform::writePaste);
    connect(&runner, &ActionRunner::openTemplateRequested, this, [this](const QString& path) {
        log_.write(DryRunLine("load-template").add("file", path));
    });
    connect(&runner, &ActionRunner::closeRequested, this,
            [this] { log_.write(DryRunLine("close")); });
}

void DryRunPlatform::writePaste() {
    DryRunLine line("paste");
    if (!clipboard_.picture().isEmpty())
        line.add("picture", clipboard_.picture());
    else if (!clipboard_.text().isEmpty())
        line.add("text", clipboard_.text());
    log_.write(line);
}

void DryRunPlatform::writeState(const ActionState& state) {
    DryRunLine line("state");
    line.add("register", state.memoryRegister);
    if (state.pendingPage)
        line.add("pending_page", *state.pendingPage);
    else
        line.addNull("pending_page");
    log_.write(line.add("launched", state.launchedPrograms)
                   .add("folder", state.WorkingFolder)
                   .add("clipboard", clipboard_.text()));
}

} // namespace mervak
