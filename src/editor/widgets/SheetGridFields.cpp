#include "editor/widgets/SheetGridFields.h"

#include "editor/widgets/Captions.h"

#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>

namespace mervak {

namespace {

constexpr int kMaxCount = 20;
constexpr double kMaxMillimetres = 50;

QSpinBox* countField(int value) {
    auto* field = new QSpinBox;
    field->setRange(1, kMaxCount);
    field->setValue(value);
    return field;
}

QDoubleSpinBox* millimetreField(double value) {
    auto* field = new QDoubleSpinBox;
    field->setRange(0, kMaxMillimetres);
    field->setDecimals(0);
    field->setSuffix(QStringLiteral(" mm"));
    field->setValue(value);
    return field;
}

QLabel* captioned(const char* catalan, Language language) {
    auto* label = new QLabel;
    setCaption(label, QString::fromUtf8(catalan), language);
    return label;
}

} // namespace

SheetGridFields::SheetGridFields(int rowCount, int columnCount, double marginMm, double gapMm)
    : rows(countField(rowCount)), columns(countField(columnCount)),
      margin(millimetreField(marginMm)), gap(millimetreField(gapMm)) {}

void SheetGridFields::addTo(QFormLayout* form, Language language) const {
    form->addRow(captioned("Files:", language), rows);
    form->addRow(captioned("Columnes:", language), columns);
    form->addRow(captioned("Marge:", language), margin);
    form->addRow(captioned("Separació:", language), gap);
}

} // namespace mervak
