#pragma once

#include <QString>
#include <optional>

namespace mervak {

// Where scanning goes after an Area is chosen, when its ActionText says so with
// a level block the command interpreter leaves alone: "{|Nivell -1}" (Catalan
// caption "Exploració nivell anterior") backs out of the row to the row level,
// "{|Nivell 0}" ("Exploració nivell inicial") goes back to the top.
enum class ScanLevel { Previous, Initial };
std::optional<ScanLevel> scanLevelOf(const QString& actionText);

// The level blocks as the command menus insert them.
QString scanLevelBlock(ScanLevel level);

// What auditory scanning reads for an Area: the text it speaks ("{|Llegir ...}"),
// else the characters it types, without the named keys and commands; empty when
// it has neither.
QString scanLabel(const QString& actionText);

} // namespace mervak
