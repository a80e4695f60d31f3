#include "support/FakeLauncher.h"

namespace mervak::test {

std::optional<std::int64_t> FakeLauncher::start(const QString& commandLine,
                                                const QString& workingFolder) {
    logTo(log_, QStringLiteral("launch %1 in %2").arg(commandLine, workingFolder));
    if (failing_)
        return std::nullopt;
    return nextId_++;
}

} // namespace mervak::test
