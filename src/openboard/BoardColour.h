#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace mervak {

// A board colour as 0xRRGGBB: "rgb(r, g, b)" (numbers or percentages),
// "rgba(r, g, b, a)" laid over white paper, "#rgb", "#rrggbb" or a colour name
// ("white"). No value for "transparent" or an empty text; `understood` is false
// when the text is none of these.
std::optional<uint32_t> parseBoardColour(const QString& text, bool* understood = nullptr);

// "rgb(r, g, b)".
QString boardColourText(uint32_t rgb);

} // namespace mervak
