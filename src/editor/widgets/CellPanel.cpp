#include "editor/widgets/CellPanel.h"

#include "editor/widgets/Captions.h"
#include "sheet/SheetStyle.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace mervak {

namespace {

constexpr int kPreviewSide = 56;
constexpr int kSwatch = 16;

// The placements in the order the box lists them.
constexpr LabelPlacement kPlacements[] = {LabelPlacement::Below, LabelPlacement::Above,
                                          LabelPlacement::Alone, LabelPlacement::None};

QIcon swatch(std::optional<QColor> colour) {
    QPixmap pixmap(kSwatch, kSwatch);
    pixmap.fill(colour.value_or(Qt::white));
    QPainter painter(&pixmap);
    painter.setPen(Qt::darkGray);
    painter.drawRect(0, 0, kSwatch - 1, kSwatch - 1);
    if (!colour) {
        painter.setPen(QPen(Qt::red, 2));
        painter.drawLine(2, kSwatch - 3, kSwatch - 3, 2);
    }
    return QIcon(pixmap);
}

QToolButton* swatchButton(std::optional<QColor> colour, const QString& tip, Language language) {
    auto* button = new QToolButton;
    button->setIcon(swatch(colour));
    button->setAutoRaise(false);
    setToolTipCaption(button, tip, language);
    return button;
}

bool isPictureFile(const QString& path) {
    static const QStringList suffixes = {QStringLiteral("png"),  QStringLiteral("jpg"),
                                         QStringLiteral("jpeg"), QStringLiteral("gif"),
                                         QStringLiteral("bmp"),  QStringLiteral("svg")};
    return suffixes.contains(path.section(u'.', -1).toLower());
}

} // namespace

CellPanel::CellPanel(Language language, QWidget* parent) : QGroupBox(parent) {
    setObjectName(QStringLiteral("CellPanel"));
    setCaption(this, QStringLiteral("Cel·la"), language);
    setAcceptDrops(true);
    new QVBoxLayout(this);
    buildPictureRow(language);
    buildLabelRows(language);
    buildColourRows(language);
    buildPageRow(language);
}

void CellPanel::buildPictureRow(Language language) {
    auto* row = new QHBoxLayout;
    preview_ = new QLabel;
    preview_->setObjectName(QStringLiteral("VistaCella"));
    preview_->setFixedSize(kPreviewSide, kPreviewSide);
    preview_->setFrameShape(QFrame::StyledPanel);
    preview_->setAlignment(Qt::AlignCenter);
    setToolTipCaption(preview_, QStringLiteral("Deixeu-hi anar una imatge"), language);
    pictureButton_ = new QPushButton;
    pictureButton_->setObjectName(QStringLiteral("ImatgeCella"));
    setCaption(pictureButton_, QStringLiteral("Imatge..."), language);
    pasteButton_ = new QPushButton;
    pasteButton_->setObjectName(QStringLiteral("EnganxarDibuix"));
    setCaption(pasteButton_, QStringLiteral("Enganxar un dibuix"), language);
    clearPicture_ = new QToolButton;
    clearPicture_->setText(QStringLiteral("×"));
    setToolTipCaption(clearPicture_, QStringLiteral("Treure la imatge"), language);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(pictureButton_);
    buttons->addWidget(pasteButton_);
    row->addWidget(preview_);
    row->addLayout(buttons, 1);
    row->addWidget(clearPicture_, 0, Qt::AlignTop);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    connect(pictureButton_, &QPushButton::clicked, this, &CellPanel::pictureFileRequested);
    connect(pasteButton_, &QPushButton::clicked, this, &CellPanel::pastePictureRequested);
    connect(clearPicture_, &QToolButton::clicked, this,
            [this] { edit([](AreaCell& cell) { cell.Picture.clear(); }); });
    cellWidgets_ << pictureButton_ << pasteButton_ << clearPicture_;
}

void CellPanel::buildLabelRows(Language language) {
    auto* grid = new QGridLayout;
    auto* labelCaption = new QLabel;
    setCaption(labelCaption, QStringLiteral("Etiqueta:"), language);
    label_ = new QLineEdit;
    label_->setObjectName(QStringLiteral("EtiquetaCella"));
    labelCaption->setBuddy(label_);
    auto* placementCaption = new QLabel;
    setCaption(placementCaption, QStringLiteral("Posició:"), language);
    placement_ = new QComboBox;
    placement_->setObjectName(QStringLiteral("PosicioEtiqueta"));
    for (const char* catalan :
         {"A sota de la imatge", "A sobre de la imatge", "Només el text", "Sense etiqueta"})
        placement_->addItem(TranslateCaption(language, QString::fromUtf8(catalan)));
    placementCaption->setBuddy(placement_);
    grid->addWidget(labelCaption, 0, 0);
    grid->addWidget(label_, 0, 1);
    grid->addWidget(placementCaption, 1, 0);
    grid->addWidget(placement_, 1, 1);
    static_cast<QVBoxLayout*>(layout())->addLayout(grid);
    connect(label_, &QLineEdit::textEdited, this,
            [this](const QString& text) { edit([&text](AreaCell& cell) { cell.Label = text; }); });
    connect(placement_, &QComboBox::activated, this, [this](int index) {
        edit([index](AreaCell& cell) { cell.Placement = kPlacements[index]; });
    });
    cellWidgets_ << label_ << placement_;
}

void CellPanel::buildColourRows(Language language) {
    auto* colours = new QHBoxLayout;
    colours->setSpacing(2);
    auto* caption = new QLabel;
    setCaption(caption, QStringLiteral("Fons:"), language);
    colours->addWidget(caption);
    for (const PaletteColour& colour : wordClassColours()) {
        QToolButton* button = swatchButton(QColor::fromRgb(static_cast<QRgb>(colour.rgb)),
                                           QString::fromUtf8(colour.catalan), language);
        palette_.append(button);
        const uint32_t rgb = colour.rgb;
        connect(button, &QToolButton::clicked, this,
                [this, rgb] { edit([rgb](AreaCell& cell) { cell.Background = rgb; }); });
    }
    QToolButton* none = swatchButton(std::nullopt, QStringLiteral("Sense color"), language);
    palette_.append(none);
    connect(none, &QToolButton::clicked, this,
            [this] { edit([](AreaCell& cell) { cell.Background.reset(); }); });
    auto* other = new QToolButton;
    other->setText(QStringLiteral("…"));
    setToolTipCaption(other, QStringLiteral("Altre color..."), language);
    palette_.append(other);
    connect(other, &QToolButton::clicked, this, [this] { chooseColour(false); });
    for (QToolButton* button : palette_)
        colours->addWidget(button);
    colours->addStretch(1);

    auto* borderRow = new QHBoxLayout;
    border_ = new QCheckBox;
    setCaption(border_, QStringLiteral("Vora"), language);
    auto* borderColour = new QToolButton;
    borderColour->setText(QStringLiteral("…"));
    setToolTipCaption(borderColour, QStringLiteral("Color de la vora..."), language);
    removeCell_ = new QPushButton;
    setCaption(removeCell_, QStringLiteral("Treure la cel·la"), language);
    borderRow->addWidget(border_);
    borderRow->addWidget(borderColour);
    borderRow->addStretch(1);
    borderRow->addWidget(removeCell_);
    auto* box = static_cast<QVBoxLayout*>(layout());
    box->addLayout(colours);
    box->addLayout(borderRow);
    connect(border_, &QCheckBox::clicked, this, [this](bool on) {
        edit(
            [on](AreaCell& cell) { cell.Border = on ? CellColour(kDefaultBorder) : std::nullopt; });
    });
    connect(borderColour, &QToolButton::clicked, this, [this] { chooseColour(true); });
    connect(removeCell_, &QPushButton::clicked, this, [this] { emit cellEdited(std::nullopt); });
    cellWidgets_ << border_ << borderColour;
    for (QToolButton* button : palette_)
        cellWidgets_ << button;
}

void CellPanel::buildPageRow(Language language) {
    auto* row = new QHBoxLayout;
    auto* caption = new QLabel;
    setCaption(caption, QStringLiteral("Caràtula:"), language);
    setToolTipCaption(caption, QStringLiteral("La imatge de fons d'aquesta pàgina"), language);
    pagePicture_ = new QLineEdit;
    pagePicture_->setObjectName(QStringLiteral("CaratulaPagina"));
    pagePicture_->setReadOnly(true);
    auto* choose = new QToolButton;
    choose->setText(QStringLiteral("..."));
    auto* clear = new QToolButton;
    clear->setText(QStringLiteral("×"));
    setToolTipCaption(clear, QStringLiteral("Treure la imatge"), language);
    row->addWidget(caption);
    row->addWidget(pagePicture_, 1);
    row->addWidget(choose);
    row->addWidget(clear);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    connect(choose, &QToolButton::clicked, this, &CellPanel::pagePictureRequested);
    connect(clear, &QToolButton::clicked, this, &CellPanel::pagePictureCleared);
}

void CellPanel::showCell(bool enabled, const std::optional<AreaCell>& cell,
                         const QString& plainLabel, const QImage& preview) {
    cell_ = cell;
    for (QWidget* widget : cellWidgets_)
        widget->setEnabled(enabled);
    removeCell_->setEnabled(enabled && cell.has_value());
    preview_->setEnabled(enabled);
    preview_->setPixmap(preview.isNull() ? QPixmap()
                                         : QPixmap::fromImage(preview.scaled(
                                               kPreviewSide - 4, kPreviewSide - 4,
                                               Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    const QString label = cell ? cell->Label : QString();
    if (label_->text() != label)
        label_->setText(label);
    label_->setPlaceholderText(plainLabel);
    const LabelPlacement placement = cell ? cell->Placement : LabelPlacement::Below;
    placement_->setCurrentIndex(
        static_cast<int>(std::find(std::begin(kPlacements), std::end(kPlacements), placement) -
                         std::begin(kPlacements)));
    border_->setChecked(!cell || cell->Border.has_value());
}

void CellPanel::showPagePicture(const QString& stored) {
    pagePicture_->setText(stored);
}

void CellPanel::edit(const std::function<void(AreaCell&)>& change) {
    AreaCell cell = cell_.value_or(AreaCell{});
    if (!cell_)
        cell.Border = kDefaultBorder;
    change(cell);
    emit cellEdited(cell);
}

void CellPanel::chooseColour(bool border) {
    const CellColour now = cell_ ? (border ? cell_->Border : cell_->Background) : std::nullopt;
    const QColor chosen = QColorDialog::getColor(
        now ? QColor::fromRgb(static_cast<QRgb>(*now)) : QColor(Qt::white), this);
    if (!chosen.isValid())
        return;
    const uint32_t rgb = chosen.rgb() & 0xFFFFFFU;
    edit([border, rgb](AreaCell& cell) { (border ? cell.Border : cell.Background) = rgb; });
}

void CellPanel::dragEnterEvent(QDragEnterEvent* event) {
    const QMimeData* data = event->mimeData();
    const bool file = data->hasUrls() && !data->urls().isEmpty() &&
                      data->urls().constFirst().isLocalFile() &&
                      isPictureFile(data->urls().constFirst().toLocalFile());
    if (isEnabled() && pictureButton_->isEnabled() && (file || data->hasImage()))
        event->acceptProposedAction();
}

void CellPanel::dropEvent(QDropEvent* event) {
    const QMimeData* data = event->mimeData();
    if (data->hasUrls() && data->urls().constFirst().isLocalFile())
        emit pictureFileDropped(data->urls().constFirst().toLocalFile());
    else if (data->hasImage())
        emit pictureImageGiven(qvariant_cast<QImage>(data->imageData()));
    event->acceptProposedAction();
}

} // namespace mervak
