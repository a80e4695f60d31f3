#include "openboard/BoardColour.h"

#include <QColor>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace mervak {

namespace {

// One channel, 0..255, from "200" or "78%".
std::optional<double> channel(QString text) {
    text = text.trimmed();
    const bool percent = text.endsWith(u'%');
    bool ok = false;
    const double value = (percent ? text.chopped(1) : text).toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return std::clamp(percent ? value * 255 / 100 : value, 0.0, 255.0);
}

std::optional<uint32_t> functional(const QString& text) {
    static const QRegularExpression pattern(
        QStringLiteral(R"(^rgba?\(([^,]+),([^,]+),([^,]+)(?:,([^,]+))?\)$)"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    double alpha = 1;
    if (match.hasCaptured(4)) {
        bool ok = false;
        alpha = match.captured(4).trimmed().toDouble(&ok);
        if (!ok || !std::isfinite(alpha))
            return std::nullopt;
        alpha = std::clamp(alpha, 0.0, 1.0);
    }
    uint32_t rgb = 0;
    for (int i = 1; i <= 3; ++i) {
        const auto value = channel(match.captured(i));
        if (!value)
            return std::nullopt;
        // Printed on white paper, a see-through colour is that much lighter.
        const double shown = *value * alpha + 255.0 * (1 - alpha);
        rgb = (rgb << 8) | static_cast<uint32_t>(std::lround(shown));
    }
    return rgb;
}

} // namespace

std::optional<uint32_t> parseBoardColour(const QString& text, bool* understood) {
    const QString trimmed = text.trimmed();
    if (understood)
        *understood = true;
    if (trimmed.isEmpty() ||
        trimmed.compare(QLatin1String("transparent"), Qt::CaseInsensitive) == 0)
        return std::nullopt;
    if (const auto rgb = functional(trimmed))
        return rgb;
    const QColor named = QColor::fromString(trimmed);
    if (named.isValid() && named.alpha() == 255)
        return named.rgb() & 0xFFFFFFU;
    if (understood)
        *understood = false;
    return std::nullopt;
}

QString boardColourText(uint32_t rgb) {
    return QStringLiteral("rgb(%1, %2, %3)")
        .arg((rgb >> 16) & 0xFFU)
        .arg((rgb >> 8) & 0xFFU)
        .arg(rgb & 0xFFU);
}

} // namespace mervak
