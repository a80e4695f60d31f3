#pragma once

#include "platform/Language.h"

class QDoubleSpinBox;
class QFormLayout;
class QSpinBox;

namespace mervak {

// The grid both sheet-making dialogs ask for: rows and columns of cells, the margin
// at the sheet's edge and the gap between cells, in millimetres. The fields belong
// to the form they are added to.
struct SheetGridFields {
    SheetGridFields(int rowCount, int columnCount, double marginMm, double gapMm);

    // One captioned row per field, in the order above.
    void addTo(QFormLayout* form, Language language) const;

    QSpinBox* rows;
    QSpinBox* columns;
    QDoubleSpinBox* margin;
    QDoubleSpinBox* gap;
};

} // namespace mervak
