#include "editor/widgets/SymbolPicker.h"

#include "editor/widgets/Captions.h"

#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QSvgRenderer>
#include <QVBoxLayout>

namespace mervak {

namespace {

constexpr int kPreviewSize = 72;

QPixmap rendered(const QString& file) {
    QPixmap pixmap(kPreviewSize, kPreviewSize);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    if (file.endsWith(QStringLiteral(".svg"), Qt::CaseInsensitive)) {
        QSvgRenderer svg(file);
        svg.render(&painter, QRectF(0, 0, kPreviewSize, kPreviewSize));
        return pixmap;
    }
    QImageReader reader(file);
    reader.setAutoTransform(true);
    const QSize size = reader.size().scaled(kPreviewSize, kPreviewSize, Qt::KeepAspectRatio);
    if (size.isValid())
        reader.setScaledSize(size);
    const QImage image = reader.read();
    painter.drawImage(
        QPointF((kPreviewSize - image.width()) / 2.0, (kPreviewSize - image.height()) / 2.0),
        image);
    return pixmap;
}

} // namespace

SymbolPicker::SymbolPicker(const SymbolLibrary& library, Language language, QWidget* parent)
    : QDialog(parent), library_(library), language_(language), field_(new QLineEdit),
      results_(new QListWidget), note_(new QLabel), accept_(new QPushButton) {
    setObjectName(QStringLiteral("SymbolPicker"));
    setWindowCaption(this, QStringLiteral("Símbols"), language);
    field_->setObjectName(QStringLiteral("cercaSimbol"));
    field_->setPlaceholderText(
        TranslateCaption(language, QStringLiteral("Escriviu una paraula: gos, casa, menjar...")));
    field_->setClearButtonEnabled(true);
    results_->setObjectName(QStringLiteral("simbols"));
    results_->setViewMode(QListView::IconMode);
    results_->setIconSize(QSize(kPreviewSize, kPreviewSize));
    results_->setGridSize(QSize(kPreviewSize + 40, kPreviewSize + 40));
    results_->setResizeMode(QListView::Adjust);
    results_->setMovement(QListView::Static);
    results_->setWordWrap(true);
    note_->setWordWrap(true);
    note_->setText(library.errorText(language));
    auto* cancel = new QPushButton;
    setCaption(accept_, QStringLiteral("Acceptar"), language);
    setCaption(cancel, QStringLiteral("Cancel·lar"), language);
    accept_->setDefault(true);
    auto* credit = new QLabel(QStringLiteral("OpenMoji (CC BY-SA 4.0), Unicode CLDR"));
    credit->setEnabled(false);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(credit);
    buttons->addStretch(1);
    buttons->addWidget(accept_);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(field_);
    layout->addWidget(note_);
    layout->addWidget(results_, 1);
    layout->addLayout(buttons);

    connect(field_, &QLineEdit::textChanged, this, &SymbolPicker::showMatches);
    connect(results_, &QListWidget::currentRowChanged, this, &SymbolPicker::refreshChoice);
    connect(results_, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(accept_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    resize(640, 480);
    refreshChoice();
}

void SymbolPicker::search(const QString& words) {
    if (field_->text() == words)
        showMatches(words);
    else
        field_->setText(words);
}

void SymbolPicker::showMatches(const QString& words) {
    results_->clear();
    shown_.clear();
    for (const SymbolMatch& match : library_.search(words, kShown)) {
        shown_.append(*match.symbol);
        results_->addItem(new QListWidgetItem(QIcon(preview(*match.symbol)), match.symbol->name));
    }
    if (!shown_.isEmpty())
        results_->setCurrentRow(0);
    refreshChoice();
}

QString SymbolPicker::chosenPicture() const {
    const int row = results_->currentRow();
    return row >= 0 && row < shown_.size() ? SymbolLibrary::cellPicture(shown_.at(row)) : QString();
}

QString SymbolPicker::chosenName() const {
    const int row = results_->currentRow();
    return row >= 0 && row < shown_.size() ? shown_.at(row).name : QString();
}

QPixmap SymbolPicker::preview(const Symbol& symbol) {
    const auto cached = previews_.constFind(symbol.id);
    if (cached != previews_.cend())
        return *cached;
    const QPixmap made = rendered(symbol.ownPicture ? symbol.id : library_.symbolFile(symbol.id));
    previews_.insert(symbol.id, made);
    return made;
}

void SymbolPicker::refreshChoice() {
    accept_->setEnabled(!chosenPicture().isEmpty());
}

} // namespace mervak
