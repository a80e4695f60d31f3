#include "editor/widgets/PageFrame.h"

#include "editor/widgets/Captions.h"
#include "template/PageOperations.h"

#include <QFont>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace mervak {

namespace {

constexpr int kNewPageRole = Qt::UserRole + 1;

} // namespace

PageFrame::PageFrame(QWidget* parent)
    : QGroupBox(parent), llistapag_(new QListWidget),
      nompag_(new QLineEdit), option1_{new QRadioButton, new QRadioButton},
      pagboto_(new QPushButton), cancel_(new QPushButton) {
    setObjectName(QStringLiteral("Frame1"));
    llistapag_->setObjectName(QStringLiteral("llistapag"));
    nompag_->setObjectName(QStringLiteral("nompag"));
    option1_[0]->setObjectName(QStringLiteral("Option1_0"));
    option1_[1]->setObjectName(QStringLiteral("Option1_1"));
    pagboto_->setObjectName(QStringLiteral("pagboto"));
    setCaption(option1_[0], QStringLiteral("Inserir abans"));
    setCaption(option1_[1], QStringLiteral("Inserir després"));
    setCaption(pagboto_, QStringLiteral("Acceptar"));
    setCaption(cancel_, QStringLiteral("Cancel·lar"));
    pagboto_->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(llistapag_, 1);
    layout->addWidget(nompag_);
    layout->addWidget(option1_[0]);
    layout->addWidget(option1_[1]);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(pagboto_);
    buttons->addWidget(cancel_);
    layout->addLayout(buttons);
    llistapag_->setMinimumHeight(90);

    connect(llistapag_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item)
            nompag_->setText(item->text());
    });
    connect(llistapag_, &QListWidget::itemActivated, this, [this] { pagboto_->click(); });
    connect(nompag_, &QLineEdit::returnPressed, pagboto_, &QPushButton::click);
    connect(pagboto_, &QPushButton::clicked, this, &PageFrame::confirmed);
    connect(cancel_, &QPushButton::clicked, this, &PageFrame::cancelled);
    hide();
}

QString PageFrame::newPageCaption() const {
    return TranslateCaption(language_, newPageName());
}

void PageFrame::start(Operation operation, const QStringList& models, Language language,
                      bool before) {
    operation_ = operation;
    language_ = language;
    static const char* const captions[] = {"Obrir models de pàgina", "Desar models de pàgina",
                                           "Enganxar models de pàgina"};
    setCaption(this, QString::fromUtf8(captions[static_cast<int>(operation)]), language);
    const bool opening = operation == Operation::Open;
    llistapag_->clear();
    if (opening) {
        auto* item = new QListWidgetItem(newPageCaption());
        item->setData(kNewPageRole, true);
        QFont font = item->font();
        font.setItalic(true);
        item->setFont(font);
        llistapag_->addItem(item);
    }
    llistapag_->addItems(models);
    nompag_->setText(opening ? newPageCaption() : QString());
    option1_[0]->setVisible(opening);
    option1_[1]->setVisible(opening);
    option1_[0]->setChecked(before);
    option1_[1]->setChecked(!before);
    show();
    nompag_->setFocus(Qt::OtherFocusReason);
    nompag_->selectAll();
}

QString PageFrame::nompag() const {
    const QString name = nompag_->text().trimmed();
    if (name == newPageCaption() || name == newPageName())
        return newPageName();
    return name;
}

int16_t PageFrame::placingCode() const {
    return mervak::placingCode(option1_[0]->isChecked(), option1_[1]->isChecked());
}

void PageFrame::setLanguage(Language language) {
    const bool showsNewPage = nompag_->text() == newPageCaption();
    language_ = language;
    for (int i = 0; i < llistapag_->count(); ++i)
        if (llistapag_->item(i)->data(kNewPageRole).toBool())
            llistapag_->item(i)->setText(newPageCaption());
    if (showsNewPage)
        nompag_->setText(newPageCaption());
}

} // namespace mervak
