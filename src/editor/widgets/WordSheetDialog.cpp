#include "editor/widgets/WordSheetDialog.h"

#include "editor/widgets/Captions.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <QVBoxLayout>

namespace mervak {

namespace {

QSpinBox* countField(const char* name, int value) {
    auto* field = new QSpinBox;
    field->setObjectName(QString::fromLatin1(name));
    field->setRange(1, 20);
    field->setValue(value);
    return field;
}

QDoubleSpinBox* millimetreField(double value) {
    auto* field = new QDoubleSpinBox;
    field->setRange(0, 40);
    field->setDecimals(0);
    field->setSuffix(QStringLiteral(" mm"));
    field->setValue(value);
    return field;
}

QLabel* captioned(const QString& catalan, Language language) {
    auto* label = new QLabel;
    setCaption(label, catalan, language);
    return label;
}

} // namespace

WordSheetDialog::WordSheetDialog(Language language, QWidget* parent)
    : QDialog(parent), language_(language), words_(new QPlainTextEdit),
      rows_(countField("files", WordSheetLayout{}.rows)),
      columns_(countField("columnes", WordSheetLayout{}.columns)),
      margin_(millimetreField(WordSheetLayout{}.marginMm)),
      gap_(millimetreField(WordSheetLayout{}.gapMm)), navigation_(new QCheckBox),
      summary_(new QLabel), accept_(new QPushButton) {
    setObjectName(QStringLiteral("LaminaParaules"));
    setWindowCaption(this, QStringLiteral("Làmina de paraules"), language);
    words_->setObjectName(QStringLiteral("paraules"));
    words_->setTabChangesFocus(true);
    words_->setPlaceholderText(
        TranslateCaption(language, QStringLiteral("gos gat vaca cavall ovella porc")));
    navigation_->setObjectName(QStringLiteral("navegacio"));
    setCaption(navigation_, QStringLiteral("Fletxes de pàgina anterior i següent"), language);
    summary_->setObjectName(QStringLiteral("resum"));
    auto* cancel = new QPushButton;
    setCaption(accept_, QStringLiteral("Acceptar"), language);
    setCaption(cancel, QStringLiteral("Cancel·lar"), language);
    accept_->setDefault(true);

    auto* form = new QFormLayout;
    form->addRow(captioned(QStringLiteral("Files:"), language), rows_);
    form->addRow(captioned(QStringLiteral("Columnes:"), language), columns_);
    form->addRow(captioned(QStringLiteral("Marge:"), language), margin_);
    form->addRow(captioned(QStringLiteral("Separació:"), language), gap_);
    form->addRow(navigation_);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(summary_, 1);
    buttons->addWidget(accept_);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(captioned(
        QStringLiteral("Paraules, separades per espais (o per comes, si n'hi ha de compostes):"),
        language));
    layout->addWidget(words_, 1);
    layout->addLayout(form);
    layout->addLayout(buttons);

    connect(words_, &QPlainTextEdit::textChanged, this, &WordSheetDialog::refresh);
    for (QSpinBox* count : {rows_, columns_})
        connect(count, &QSpinBox::valueChanged, this, &WordSheetDialog::refresh);
    connect(accept_, &QPushButton::clicked, this, &QDialog::accept);
    // Return starts a new line in the word list; Ctrl+Return accepts, as the button does.
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), this), &QShortcut::activated,
            accept_, &QPushButton::click);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    resize(420, 420);
    refresh();
}

QStringList WordSheetDialog::words() const {
    return splitWordList(words_->toPlainText());
}

WordSheetLayout WordSheetDialog::sheetLayout() const {
    WordSheetLayout made;
    made.rows = rows_->value();
    made.columns = columns_->value();
    made.marginMm = margin_->value();
    made.gapMm = gap_->value();
    made.navigation = navigation_->isChecked();
    return made;
}

void WordSheetDialog::refresh() {
    const auto count = words().size();
    const auto perPage = rows_->value() * columns_->value();
    const auto pages = (count + perPage - 1) / perPage;
    summary_->setText(TranslateCaption(language_, QStringLiteral("%1 paraules, %2 pàgines"))
                          .arg(count)
                          .arg(pages));
    accept_->setEnabled(count > 0);
}

} // namespace mervak
