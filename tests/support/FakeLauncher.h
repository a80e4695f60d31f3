#pragma once

#include "platform/ProgramLauncher.h"
#include "support/EffectLog.h"

namespace mervak::test {

// Starts nothing. Logs "launch <command line> in <folder>" and hands out process
// ids from 0x1A2B on, one more each time; while failing it returns nothing.
class FakeLauncher : public ProgramLauncher {
public:
    explicit FakeLauncher(EffectLog* log = nullptr) : log_(log) {}

    void setFailing(bool failing) { failing_ = failing; }

    std::optional<std::int64_t> start(const QString& commandLine,
                                      const QString& workingFolder) override;

private:
    EffectLog* log_;
    bool failing_ = false;
    std::int64_t nextId_ = 0x1A2B;
};

} // namespace mervak::test
