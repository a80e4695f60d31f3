#pragma once

#include "template/AreaCell.h"

#include <QFont>
#include <QRectF>
#include <QSizeF>
#include <QStringList>

namespace mervak {

// Where a cell's picture and label go inside its box, in the units of the
// surface drawn on (pixels or PDF dots).
struct CellLayout {
    QRectF picture;    // the picture's shape kept, centred; empty when none is drawn
    QRectF label;      // the box the label's lines are centred in; empty when none
    QStringList lines; // the label in one line, or two when that lets it grow
    // The label's size as a scale of labelReferenceFont(): 0.5 draws it at half its size.
    double labelScale = 0;
};

// The label font at the size layouts are measured in.
QFont labelReferenceFont();

// Lays out a cell in `box`. `pictureSize` is the picture's own size (empty
// when the cell has none or it is missing); `dotsPerMm` keeps margins and the
// largest label a sensible size on paper whatever the resolution. The label
// is as large as fits, up to a third of the box's height when it stands with a
// picture, and never wider than the box.
CellLayout layoutCell(const QRectF& box, LabelPlacement placement, const QString& label,
                      QSizeF pictureSize, double dotsPerMm);

} // namespace mervak
