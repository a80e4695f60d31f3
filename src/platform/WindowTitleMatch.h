#pragma once

#include "platform/WindowSystem.h"

namespace mervak {

// The window whose title equals `title`, else the first that begins with it, both
// without regard to case and searched from the top of the stack (`windows` lists
// the bottom first), so the most recently raised of two alike wins. kNoWindow for
// an empty title or when none matches.
WindowId findWindowByTitle(const QList<WindowInfo>& windows, const QString& title);

} // namespace mervak
