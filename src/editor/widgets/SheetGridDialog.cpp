#include "editor/widgets/SheetGridDialog.h"

#include "editor/widgets/Captions.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

namespace mervak {

SheetGridDialog::SheetGridDialog(Language language, const GridSpec& start, QWidget* parent)
    : QDialog(parent), grid_(start.rows, start.columns, start.marginMm, start.gapMm),
      newPage_(new QRadioButton), currentPage_(new QRadioButton) {
    setObjectName(QStringLiteral("GraellaCelles"));
    setWindowCaption(this, QStringLiteral("Graella de cel·les"), language);
    setCaption(newPage_, QStringLiteral("En una pàgina nova"), language);
    setCaption(currentPage_, QStringLiteral("A la pàgina actual"), language);
    newPage_->setChecked(true);
    auto* where = new QHBoxLayout;
    where->addWidget(newPage_);
    where->addWidget(currentPage_);
    auto* form = new QFormLayout(this);
    grid_.addTo(form, language);
    form->addRow(where);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    setCaption(buttons->button(QDialogButtonBox::Ok), QStringLiteral("Acceptar"), language);
    setCaption(buttons->button(QDialogButtonBox::Cancel), QStringLiteral("Cancel·lar"), language);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

GridSpec SheetGridDialog::spec() const {
    return {grid_.rows->value(), grid_.columns->value(), grid_.margin->value(), grid_.gap->value()};
}

bool SheetGridDialog::onNewPage() const {
    return newPage_->isChecked();
}

} // namespace mervak
