#pragma once

#include <QString>

namespace mervak {

// What an Area types or says, in plain words for its printed label: the
// characters its keys type, or else the words a "{|Llegir ...}" ("{|Leer ...}")
// block says. Named keys, chords and other command blocks leave nothing, so no
// command syntax ever reaches the sheet. Blanks are collapsed and trimmed.
QString plainLabel(const QString& actionText);

} // namespace mervak
