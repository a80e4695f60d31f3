#pragma once

#include "platform/Language.h"
#include "platform/audio/AudioOutput.h"

#include <QString>

namespace mervak {

// Why `what` (a file, a text) could not be heard, in the language; empty when it was
// heard or stopped on purpose.
QString audioProblem(Language language, AudioOutput::Outcome outcome, const QString& what);

} // namespace mervak
