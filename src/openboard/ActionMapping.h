#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace mervak {

// What an Area does, in the words a communication board uses.
struct ButtonAction {
    QString typed;           // the text typed, as plain characters
    QString spoken;          // the text read aloud
    std::optional<int> page; // the page it changes to
    friend bool operator==(const ButtonAction&, const ButtonAction&) = default;
};

// The ActionText that types `typed` (escaped for the send-keys notation),
// reads `spoken` aloud and then changes page: each part only when given.
QString actionTextOf(const ButtonAction& action);

// What an ActionText types (key runs as plain characters, named keys left
// out), reads aloud (every "Llegir"/"Leer" block, joined by a blank) and the
// page its first "Pagina" block changes to.
ButtonAction buttonActionOf(const QString& actionText);

// `text` with every character the send-keys notation reads specially braced.
QString escapedKeys(const QString& text);

} // namespace mervak
