#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace mervak {

// Where a cell's label stands with respect to its picture.
enum class LabelPlacement : int16_t { Below = 0, Above = 1, Alone = 2, None = 3 };

// A colour as 0xRRGGBB; no value means the sheet shows through.
using CellColour = std::optional<uint32_t>;

// What Mervak draws inside an Area's rectangle on the printed sheet. An Area
// without a cell draws nothing of its own, as in every older Template.
struct AreaCell {
    // A file path stored as the other file references are (relative to the
    // Template's folder when it lies there), or a library symbol written
    // "symbol:" and its hexcode ("symbol:1F415"); empty for no picture.
    QString Picture;
    // Empty: the sheet shows what the Area types or says, in plain words.
    QString Label;
    LabelPlacement Placement = LabelPlacement::Below;
    CellColour Background;
    CellColour Border;

    friend bool operator==(const AreaCell&, const AreaCell&) = default;
};

// "symbol:" + hexcode for a library symbol.
QString symbolReference(const QString& hexcode);
// The hexcode of a library symbol's reference; empty for a file path.
QString symbolHexcode(const QString& picture);
bool isSymbolReference(const QString& picture);

// "#RRGGBB" for a colour, empty for none; the reverse reads "#RRGGBB" (any
// case) and gives no value for anything else.
QString colourText(CellColour colour);
CellColour colourFromText(const QString& text);

} // namespace mervak
