#pragma once

#include <QString>
#include <array>

namespace mervak {

// One row of the MS-DOS templates' key table: the Ctrl notation of the code and
// the key it sends, both in send-keys notation; either may be empty.
struct LegacyKey {
    QString ctrl;
    QString sends;
};

// Rows 0..256. Row 0 means "no key"; row 256 exists but no byte reaches it.
//   1..26    ctrl "^A".."^Z" (code 5 is a lone "^")
//   9,10,13,14,15  send "{TAB}", "^{ENTER}", "{ENTER}", "{BS}", "+{TAB}"
//   16..41   send Alt with the letters in keyboard order: Q..P, A..L, Z..M
//   42..136  send the printable characters " ".."~" (code - 10), braced where
//            the notation needs it ("{+}", "{%}", "{^}", "{~}", "{(}", ...)
//   137..159 send named keys: F1..F10, HOME, UP, PGDN, RIGHT, PGUP, LEFT, END,
//            DOWN, INSERT, DELETE, ESC, F11, F12
//   160..255 send the characters U+00A0..U+00FF (à, ç, l·l, ñ, ...)
const std::array<LegacyKey, 257>& legacyKeyTable();

// The send-keys text of one code: the key it sends, else its Ctrl notation.
const QString& legacyKeyText(int code);

} // namespace mervak
