#include "editor/widgets/AreaPanel.h"

#include "editor/widgets/Captions.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace mervak {

namespace {

constexpr int kPanelWidth = 300;

QLabel* counterLabel(const QString& text) {
    auto* label = new QLabel(text);
    label->setAlignment(Qt::AlignCenter);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

} // namespace

AreaPanel::AreaPanel(Language language, QWidget* parent)
    : QWidget(parent), actionText_(new ActionTextEdit) {
    setFixedWidth(kPanelWidth);
    layout_ = new QVBoxLayout(this);
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->addWidget(buildAreaGroup(language));
    cells_ = new CellPanel(language);
    layout_->addWidget(cells_);
    layout_->addWidget(buildPageGroup(language));
    layout_->addStretch(1);
}

QToolButton* AreaPanel::arrowButton(const QString& caption, const QString& tip, Language language) {
    auto* button = new QToolButton;
    setCaption(button, caption, language);
    setToolTipCaption(button, tip, language);
    button->setAutoRaise(false);
    button->setMinimumWidth(32);
    return button;
}

QWidget* AreaPanel::buildAreaGroup(Language language) {
    auto* group = new QGroupBox;
    setCaption(group, QStringLiteral("&Àrea"), language);
    auto* box = new QVBoxLayout(group);

    auto* counterRow = new QHBoxLayout;
    QToolButton* previous =
        arrowButton(QStringLiteral("<"), QStringLiteral("Àrea anterior"), language);
    previous->setObjectName(QStringLiteral("PrevArea"));
    QToolButton* next = arrowButton(QStringLiteral(">"), QStringLiteral("Àrea següent"), language);
    next->setObjectName(QStringLiteral("NextArea"));
    areaCounter_ = counterLabel(translateCounter(language, QStringLiteral("0/0 àrees")));
    areaCounter_->setObjectName(QStringLiteral("MsgArea"));
    counterRow->addWidget(previous);
    counterRow->addWidget(areaCounter_, 1);
    counterRow->addWidget(next);
    box->addLayout(counterRow);
    connect(previous, &QToolButton::clicked, this, &AreaPanel::previousAreaClicked);
    connect(next, &QToolButton::clicked, this, &AreaPanel::nextAreaClicked);

    box->addWidget(buildCoordinates());

    auto* keysLabel = new QLabel;
    setCaption(keysLabel, QStringLiteral("Tecles a enviar:"), language);
    keysLabel->setBuddy(actionText_);
    box->addWidget(keysLabel);
    actionText_->setObjectName(QStringLiteral("TxText"));
    box->addWidget(actionText_);
    connect(actionText_, &ActionTextEdit::textEdited, this, &AreaPanel::actionTextEdited);
    buildKeysPreview(box, language);

    auto* buttons = new QHBoxLayout;
    commands_ = new CommandMenu(language, this);
    commandButton_ = new QPushButton;
    commandButton_->setObjectName(QStringLiteral("Ordres"));
    setCaption(commandButton_, QStringLiteral("Ordres"), language);
    commandButton_->setMenu(commands_);
    try_ = new QPushButton;
    try_->setObjectName(QStringLiteral("Provar"));
    setCaption(try_, QStringLiteral("Provar"), language);
    setToolTipCaption(try_, QStringLiteral("Executa les tecles a l'aplicació"), language);
    buttons->addWidget(commandButton_, 1);
    buttons->addWidget(try_, 1);
    box->addLayout(buttons);
    connect(try_, &QPushButton::clicked, this, &AreaPanel::tryClicked);

    repeat_ = new QCheckBox;
    repeat_->setObjectName(QStringLiteral("ChRepe"));
    setCaption(repeat_, QStringLiteral("Repetició de lectures"), language);
    box->addWidget(repeat_);
    connect(repeat_, &QCheckBox::clicked, this, &AreaPanel::repeatReadingsToggled);
    return group;
}

// What the field will type, as the sheet's labels show it, and below it what
// is wrong with the notation, both kept up to date while the text is typed.
void AreaPanel::buildKeysPreview(QVBoxLayout* box, Language language) {
    keysPreview_ = new QLabel;
    keysPreview_->setObjectName(QStringLiteral("VistaTecles"));
    keysPreview_->setWordWrap(true);
    keysPreview_->setTextFormat(Qt::PlainText);
    keysPreview_->setFrameShape(QFrame::StyledPanel);
    keysPreview_->setAutoFillBackground(true);
    keysPreview_->setBackgroundRole(QPalette::AlternateBase);
    keysPreview_->setMargin(3);
    setToolTipCaption(keysPreview_, QStringLiteral("El que rebrà l'aplicació"), language);
    notationProblem_ = new QLabel;
    notationProblem_->setObjectName(QStringLiteral("ErrorTecles"));
    notationProblem_->setWordWrap(true);
    notationProblem_->setTextFormat(Qt::PlainText);
    QPalette palette = notationProblem_->palette();
    palette.setColor(QPalette::WindowText, QColor(180, 0, 0));
    notationProblem_->setPalette(palette);
    notationProblem_->hide();
    box->addWidget(keysPreview_);
    box->addWidget(notationProblem_);
}

void AreaPanel::showKeysPreview(const QString& preview, const QString& problem, qsizetype markFrom,
                                qsizetype markLength) {
    keysPreview_->setText(preview);
    notationProblem_->setText(problem);
    notationProblem_->setVisible(!problem.isEmpty());
    actionText_->markError(problem.isEmpty() ? -1 : markFrom, markLength);
}

QWidget* AreaPanel::buildCoordinates() {
    auto* widget = new QWidget;
    auto* grid = new QGridLayout(widget);
    grid->setContentsMargins(0, 4, 0, 4);
    const struct {
        Coordinate which;
        const char* name;
        const char* label;
        int row, column;
    } layout[] = {{Coordinate::X0, "TxX0", "X0", 0, 0},
                  {Coordinate::X1, "TxX1", "X1", 0, 2},
                  {Coordinate::Y0, "TxY0", "Y0", 1, 0},
                  {Coordinate::Y1, "TxY1", "Y1", 1, 2}};
    for (const auto& item : layout) {
        auto* field = new QLineEdit;
        field->setObjectName(QString::fromLatin1(item.name));
        field->setValidator(new QIntValidator(0, kSheetUnits, field));
        field->setAlignment(Qt::AlignRight);
        field->setMaximumWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("00000")) +
                               16);
        auto* label = new QLabel(QString::fromLatin1(item.label));
        label->setBuddy(field);
        grid->addWidget(label, item.row, item.column, Qt::AlignRight);
        grid->addWidget(field, item.row, item.column + 1, Qt::AlignLeft);
        fields_.append({item.which, field});
        const Coordinate which = item.which;
        connect(field, &QLineEdit::editingFinished, this, [this, field, which] {
            bool ok = false;
            const int value = field->text().toInt(&ok);
            if (ok)
                emit coordinateTyped(which, value);
        });
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return widget;
}

QWidget* AreaPanel::buildPageGroup(Language language) {
    auto* group = new QGroupBox;
    setCaption(group, QStringLiteral("&Pàgina"), language);
    auto* row = new QHBoxLayout(group);
    QToolButton* previous =
        arrowButton(QStringLiteral("<"), QStringLiteral("Pàgina anterior"), language);
    previous->setObjectName(QStringLiteral("pAG_ANT"));
    QToolButton* next =
        arrowButton(QStringLiteral(">"), QStringLiteral("Pàgina següent"), language);
    next->setObjectName(QStringLiteral("PAG_SEG"));
    pageCounter_ = counterLabel(translateCounter(language, QStringLiteral("0/0 pàgines")));
    pageCounter_->setObjectName(QStringLiteral("MsgPagina"));
    row->addWidget(previous);
    row->addWidget(pageCounter_, 1);
    row->addWidget(next);
    connect(previous, &QToolButton::clicked, this, &AreaPanel::previousPageClicked);
    connect(next, &QToolButton::clicked, this, &AreaPanel::nextPageClicked);
    return group;
}

void AreaPanel::addBelowPages(QWidget* widget) {
    layout_->insertWidget(layout_->count() - 1, widget);
}

QLineEdit* AreaPanel::field(Coordinate which) const {
    for (const auto& [coordinate, field] : fields_)
        if (coordinate == which)
            return field;
    return nullptr;
}

void AreaPanel::showArea(const Area* area) {
    for (const auto& [which, field] : fields_) {
        field->setEnabled(area != nullptr);
        if (!area) {
            field->clear();
            continue;
        }
        const int16_t value = which == Coordinate::X0   ? area->X0
                              : which == Coordinate::X1 ? area->X1
                              : which == Coordinate::Y0 ? area->Y0
                                                        : area->Y1;
        if (!field->hasFocus() || field->text().toInt() != value)
            field->setText(QString::number(value));
    }
    actionText_->setEnabled(area != nullptr);
    actionText_->setText(area ? area->ActionText : QString());
    commandButton_->setEnabled(area != nullptr);
    try_->setEnabled(area != nullptr);
    repeat_->setEnabled(area != nullptr);
    repeat_->setChecked(area && area->Flags != 0);
}

void AreaPanel::setCounters(const QString& areaCounter, const QString& pageCounter) {
    areaCounter_->setText(areaCounter);
    pageCounter_->setText(pageCounter);
}

} // namespace mervak
