#pragma once

#include "action/dryrun/DryRunLog.h"
#include "platform/KeyboardOutput.h"

namespace mervak {

// Types nothing. Each run of strokes is one "keys" effect: "text" is the
// strokes written back in send-keys notation, "events" the same stroke by
// stroke. Each flush is one "flush" effect, ended from the event loop (a
// QCoreApplication must exist).
class DryRunKeyboard : public KeyboardOutput {
public:
    explicit DryRunKeyboard(DryRunLog& log) : log_(log) {}

    std::optional<TypingError> type(const KeyStrokes& strokes) override;
    void flush(std::function<void()> done) override;

private:
    DryRunLog& log_;
};

} // namespace mervak
