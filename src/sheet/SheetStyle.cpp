#include "sheet/SheetStyle.h"

namespace mervak {

QFont labelFont() {
    QFont font;
    font.setFamilies({QStringLiteral("Andika"), QStringLiteral("DejaVu Sans")});
    font.setStyleHint(QFont::SansSerif);
    return font;
}

const QList<PaletteColour>& wordClassColours() {
    static const QList<PaletteColour> colours = {
        {"Persones", 0xFFEB3BU},     // yellow
        {"Accions", 0x8BC34AU},      // green
        {"Descripcions", 0x64B5F6U}, // blue
        {"Coses", 0xFFB74DU},        // orange
        {"Socials", 0xF48FB1U},      // pink
        {"Preguntes", 0xCE93D8U},    // purple
        {"Negacions", 0xEF5350U},    // red
    };
    return colours;
}

} // namespace mervak
