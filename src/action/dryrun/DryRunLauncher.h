#pragma once

#include "action/dryrun/DryRunLog.h"
#include "platform/ProgramLauncher.h"

namespace mervak {

// Starts nothing. Each start is one "launch" effect with the "command" line,
// the "folder" it would run in and the pretend process id "pid" it returns:
// kFirstProcessId, then one more for each start.
class DryRunLauncher : public ProgramLauncher {
public:
    static constexpr std::int64_t kFirstProcessId = 0x1000;

    explicit DryRunLauncher(DryRunLog& log) : log_(log) {}

    // Nothing, and no effect, for a command line that is only blanks.
    std::optional<std::int64_t> start(const QString& commandLine,
                                      const QString& workingFolder) override;

private:
    DryRunLog& log_;
    std::int64_t next_ = kFirstProcessId;
};

} // namespace mervak
