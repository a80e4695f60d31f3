#include "editor/widgets/WordSheetDialog.h"

#include "editor/widgets/Captions.h"

#include <QCheckBox>
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

QLabel* captioned(const QString& catalan, Language language) {
    auto* label = new QLabel;
    setCaption(label, catalan, language);
    return label;
}

} // namespace

WordSheetDialog::WordSheetDialog(Language language, QWidget* parent)
    : QDialog(parent), language_(language), words_(new QPlainTextEdit),
      grid_(WordSheetLayout{}.rows, WordSheetLayout{}.columns, WordSheetLayout{}.marginMm,
            WordSheetLayout{}.gapMm),
      navigation_(new QCheckBox), summary_(new QLabel), accept_(new QPushButton) {
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
    grid_.addTo(form, language);
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
    for (QSpinBox* count : {grid_.rows, grid_.columns})
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
    made.rows = grid_.rows->value();
    made.columns = grid_.columns->value();
    made.marginMm = grid_.margin->value();
    made.gapMm = grid_.gap->value();
    made.navigation = navigation_->isChecked();
    return made;
}

void WordSheetDialog::refresh() {
    const auto count = words().size();
    const auto perPage = grid_.rows->value() * grid_.columns->value();
    const auto pages = (count + perPage - 1) / perPage;
    summary_->setText(TranslateCaption(language_, QStringLiteral("%1 paraules, %2 pàgines"))
                          .arg(count)
                          .arg(pages));
    accept_->setEnabled(count > 0);
}

} // namespace mervak
