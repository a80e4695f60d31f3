#include "sheet/CellLayout.h"

#include "sheet/SheetStyle.h"

#include <QFontMetricsF>
#include <algorithm>

namespace mervak {

namespace {

constexpr int kReferencePixels = 100;
constexpr double kLargestLabelMm = 16;
constexpr double kLabelShareWithPicture = 0.3;

struct FittedLabel {
    QStringList lines;
    double scale = 0;
    double height = 0; // of all lines at that scale
};

// The text in one line, or in two split at the blank nearest its middle.
QList<QStringList> lineChoices(const QString& text) {
    QList<QStringList> choices{{text}};
    qsizetype best = -1;
    for (qsizetype i = 0; i < text.size(); ++i)
        if (text[i] == u' ' &&
            (best < 0 || qAbs(i - text.size() / 2) < qAbs(best - text.size() / 2)))
            best = i;
    if (best > 0)
        choices.append({text.left(best), text.mid(best + 1)});
    return choices;
}

FittedLabel fitLabel(const QString& text, QSizeF room, double largestPixels) {
    const QFontMetricsF metrics(labelReferenceFont());
    FittedLabel fitted;
    for (const QStringList& lines : lineChoices(text)) {
        double widest = 1;
        for (const QString& line : lines)
            widest = std::max(widest, metrics.horizontalAdvance(line));
        const double lineHeight = metrics.height();
        const double scale =
            std::min({room.width() / widest, room.height() / (lineHeight * lines.size()),
                      largestPixels / kReferencePixels});
        if (scale > fitted.scale * 1.15)
            fitted = {lines, scale, lineHeight * lines.size() * scale};
    }
    return fitted;
}

QRectF fitPicture(const QRectF& room, QSizeF pictureSize) {
    if (pictureSize.isEmpty() || room.isEmpty())
        return {};
    const QSizeF size = pictureSize.scaled(room.size(), Qt::KeepAspectRatio);
    return {room.center() - QPointF(size.width() / 2, size.height() / 2), size};
}

} // namespace

QFont labelReferenceFont() {
    QFont font = labelFont();
    font.setPixelSize(kReferencePixels);
    return font;
}

CellLayout layoutCell(const QRectF& box, LabelPlacement placement, const QString& label,
                      QSizeF pictureSize, double dotsPerMm) {
    const double side = std::min(box.width(), box.height());
    const double padding = std::clamp(1.5 * dotsPerMm, side * 0.04, side * 0.12);
    const QRectF inner = box.adjusted(padding, padding, -padding, -padding);
    const bool hasLabel = placement != LabelPlacement::None && !label.isEmpty();
    const bool hasPicture = placement != LabelPlacement::Alone && !pictureSize.isEmpty();
    CellLayout layout;
    if (!hasLabel) {
        layout.picture = fitPicture(inner, pictureSize);
        return layout;
    }
    const double largest = kLargestLabelMm * dotsPerMm * (hasPicture ? 1.0 : 2.0);
    const double share = hasPicture ? kLabelShareWithPicture : 1.0;
    const FittedLabel fitted =
        fitLabel(label, QSizeF(inner.width(), inner.height() * share), largest);
    layout.lines = fitted.lines;
    layout.labelScale = fitted.scale;
    if (!hasPicture) {
        layout.label = inner;
        return layout;
    }
    const double gap = padding / 2;
    QRectF rest = inner;
    if (placement == LabelPlacement::Above) {
        layout.label = QRectF(inner.left(), inner.top(), inner.width(), fitted.height);
        rest.setTop(layout.label.bottom() + gap);
    } else {
        layout.label =
            QRectF(inner.left(), inner.bottom() - fitted.height, inner.width(), fitted.height);
        rest.setBottom(layout.label.top() - gap);
    }
    layout.picture = fitPicture(rest, pictureSize);
    return layout;
}

} // namespace mervak
