#pragma once

#include "Commands.h"

#include <QStringList>

namespace mervak::cli {

// `mervak-cli audit FILE [--json]`: one line per guarded command of the
// Template, and whether this user trusts it. Exit 0 with none, 3 with some.
int runAudit(const QStringList& positional, bool json, CommandContext& context);

} // namespace mervak::cli
