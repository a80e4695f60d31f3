#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace mervak {

class ProgramLauncher {
public:
    virtual ~ProgramLauncher() = default;
    // Starts the command line (program and arguments, blank-separated, quotes
    // grouping) detached from this process. Returns its process id, or nothing
    // when it could not start.
    virtual std::optional<std::int64_t> start(const QString& commandLine,
                                              const QString& workingFolder) = 0;
};

} // namespace mervak
