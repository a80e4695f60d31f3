#pragma once

#include "action/dryrun/DryRunLine.h"

#include <functional>

namespace mervak {

// Where the dry-run backends write their effects, one line each, in the order
// they happen.
class DryRunLog {
public:
    // `sink` gets each line with its "\n".
    using Sink = std::function<void(const QByteArray& line)>;

    explicit DryRunLog(Sink sink) : sink_(std::move(sink)) {}

    void write(const DryRunLine& line) { sink_(line.text() + '\n'); }

private:
    Sink sink_;
};

} // namespace mervak
