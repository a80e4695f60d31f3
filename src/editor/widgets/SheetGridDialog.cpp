#include "editor/widgets/SheetGridDialog.h"

#include "editor/widgets/Captions.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

namespace mervak {

namespace {

constexpr int kMaxCount = 12;

QLabel* caption(const char* catalan, Language language) {
    auto* label = new QLabel;
    setCaption(label, QString::fromUtf8(catalan), language);
    return label;
}

QDoubleSpinBox* millimetres(double value) {
    auto* field = new QDoubleSpinBox;
    field->setRange(0, 50);
    field->setDecimals(0);
    field->setSuffix(QStringLiteral(" mm"));
    field->setValue(value);
    return field;
}

} // namespace

SheetGridDialog::SheetGridDialog(Language language, const GridSpec& start, QWidget* parent)
    : QDialog(parent), rows_(new QSpinBox), columns_(new QSpinBox),
      margin_(millimetres(start.marginMm)), gap_(millimetres(start.gapMm)),
      newPage_(new QRadioButton), currentPage_(new QRadioButton) {
    setObjectName(QStringLiteral("GraellaCelles"));
    setWindowCaption(this, QStringLiteral("Graella de cel·les"), language);
    rows_->setObjectName(QStringLiteral("FilesGraella"));
    columns_->setObjectName(QStringLiteral("ColumnesGraella"));
    for (QSpinBox* count : {rows_, columns_})
        count->setRange(1, kMaxCount);
    rows_->setValue(start.rows);
    columns_->setValue(start.columns);
    setCaption(newPage_, QStringLiteral("En una pàgina nova"), language);
    setCaption(currentPage_, QStringLiteral("A la pàgina actual"), language);
    newPage_->setChecked(true);
    auto* where = new QHBoxLayout;
    where->addWidget(newPage_);
    where->addWidget(currentPage_);
    auto* form = new QFormLayout(this);
    form->addRow(caption("Files:", language), rows_);
    form->addRow(caption("Columnes:", language), columns_);
    form->addRow(caption("Marge:", language), margin_);
    form->addRow(caption("Separació:", language), gap_);
    form->addRow(where);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    setCaption(buttons->button(QDialogButtonBox::Ok), QStringLiteral("Acceptar"), language);
    setCaption(buttons->button(QDialogButtonBox::Cancel), QStringLiteral("Cancel·lar"), language);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

GridSpec SheetGridDialog::spec() const {
    return {rows_->value(), columns_->value(), margin_->value(), gap_->value()};
}

bool SheetGridDialog::onNewPage() const {
    return newPage_->isChecked();
}

} // namespace mervak
