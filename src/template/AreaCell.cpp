#include "template/AreaCell.h"

namespace mervak {

namespace {

QString symbolPrefix() {
    return QStringLiteral("symbol:");
}

} // namespace

QString symbolReference(const QString& hexcode) {
    return symbolPrefix() + hexcode;
}

bool isSymbolReference(const QString& picture) {
    return picture.startsWith(symbolPrefix(), Qt::CaseInsensitive);
}

QString symbolHexcode(const QString& picture) {
    return isSymbolReference(picture) ? picture.mid(symbolPrefix().size()) : QString();
}

QString colourText(CellColour colour) {
    if (!colour)
        return {};
    return u'#' + QStringLiteral("%1").arg(*colour & 0xFFFFFFU, 6, 16, QLatin1Char('0')).toUpper();
}

CellColour colourFromText(const QString& text) {
    if (text.size() != 7 || !text.startsWith(u'#'))
        return std::nullopt;
    bool ok = false;
    const uint value = text.mid(1).toUInt(&ok, 16);
    return ok ? CellColour(value) : std::nullopt;
}

} // namespace mervak
