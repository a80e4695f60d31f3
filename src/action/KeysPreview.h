#pragma once

#include "action/SendKeysParser.h"

#include <QString>
#include <optional>

namespace mervak {

// What an ActionText will do, written for people: the characters as they will
// arrive, named keys as symbols ("⏎", "⇥", "←") or short names, chords as
// "Ctrl+C", and command blocks as short tags ("⟦Pagina 2⟧"). Whatever is not one
// character typed stands between "⟨" and "⟩", so that it does not run into the
// text around it: "1+1" shows "1⟨Shift+1⟩", since "+" is Shift. More than
// kShownRepeats strokes alike show once with their count ("←×10").
struct KeysPreview {
    static constexpr int kShownRepeats = 5;

    QString text;
    // The first run of keys that cannot be read, its position counted in the
    // whole ActionText; the text shows what comes before it.
    std::optional<SendKeysError> error;

    static KeysPreview of(const QString& actionText);
};

} // namespace mervak
