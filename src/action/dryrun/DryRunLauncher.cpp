#include "action/dryrun/DryRunLauncher.h"

namespace mervak {

std::optional<std::int64_t> DryRunLauncher::start(const QString& commandLine,
                                                  const QString& workingFolder) {
    if (commandLine.trimmed().isEmpty())
        return std::nullopt;
    const std::int64_t processId = next_++;
    log_.write(DryRunLine("launch")
                   .add("command", commandLine)
                   .add("folder", workingFolder)
                   .add("pid", processId));
    return processId;
}

} // namespace mervak
