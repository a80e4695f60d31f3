#include "editor/widgets/GridDialog.h"

#include "editor/GridSplit.h"
#include "editor/widgets/Captions.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>

namespace mervak {

namespace {

// The grid drawn in the Area's shape.
class GridPreview : public QWidget {
public:
    GridPreview(QSizeF shape, const GridDialog& dialog) : shape_(shape), dialog_(dialog) {
        setMinimumSize(160, 120);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QSizeF shape = shape_.isEmpty() ? QSizeF(1, 1) : shape_;
        const QSizeF fitted = shape.scaled(QSizeF(size()) - QSizeF(8, 8), Qt::KeepAspectRatio);
        const QRectF box(QPointF((width() - fitted.width()) / 2, (height() - fitted.height()) / 2),
                         fitted);
        painter.fillRect(box, Qt::white);
        painter.setPen(QPen(QColor(20, 70, 200), 1));
        const int columns = dialog_.columns();
        const int rows = dialog_.rows();
        for (int c = 1; c < columns; ++c) {
            const double x = box.left() + box.width() * c / columns;
            painter.drawLine(QPointF(x, box.top()), QPointF(x, box.bottom()));
        }
        for (int r = 1; r < rows; ++r) {
            const double y = box.top() + box.height() * r / rows;
            painter.drawLine(QPointF(box.left(), y), QPointF(box.right(), y));
        }
        painter.setPen(QPen(QColor(220, 30, 30), 2));
        painter.drawRect(box);
    }

private:
    QSizeF shape_;
    const GridDialog& dialog_;
};

QScrollBar* countBar(Qt::Orientation orientation, const char* name) {
    auto* bar = new QScrollBar(orientation);
    bar->setObjectName(QString::fromLatin1(name));
    bar->setRange(0, GridDialog::kMaxCount - 1);
    bar->setPageStep(1);
    return bar;
}

QSpinBox* countField(const char* name) {
    auto* field = new QSpinBox;
    field->setObjectName(QString::fromLatin1(name));
    field->setRange(1, GridDialog::kMaxCount);
    return field;
}

} // namespace

GridDialog::GridDialog(Language language, QSizeF shape, QWidget* parent)
    : QDialog(parent), scrollH_(countBar(Qt::Horizontal, "ScrollH")),
      scrollV_(countBar(Qt::Vertical, "ScrollV")), columnsLabel_(new QLabel),
      rowsLabel_(new QLabel), columnsField_(countField("NumColumnes")),
      rowsField_(countField("NumFiles")), command1_(new QPushButton), command2_(new QPushButton) {
    setObjectName(QStringLiteral("Quadricula"));
    setWindowCaption(this, QStringLiteral("Subdividir l'àrea"), language);
    // Value 0 is the largest count: the horizontal bar puts it at the right.
    scrollH_->setInvertedAppearance(true);
    scrollH_->setInvertedControls(true);
    preview_ = new GridPreview(shape, *this);

    auto* columnsName = new QLabel;
    setCaption(columnsName, QStringLiteral("Columnes:"), language);
    auto* rowsName = new QLabel;
    setCaption(rowsName, QStringLiteral("Files:"), language);
    setCaption(command1_, QStringLiteral("Acceptar"), language);
    setCaption(command2_, QStringLiteral("Cancel·lar"), language);
    command1_->setObjectName(QStringLiteral("Command1"));
    command2_->setObjectName(QStringLiteral("Command2"));
    command1_->setDefault(true);

    auto* grid = new QGridLayout(this);
    auto* columnsRow = new QHBoxLayout;
    columnsRow->addWidget(columnsName);
    columnsRow->addWidget(columnsLabel_);
    columnsRow->addStretch(1);
    auto* rowsRow = new QHBoxLayout;
    rowsRow->addWidget(rowsName);
    rowsRow->addWidget(rowsLabel_);
    rowsRow->addStretch(1);
    grid->addLayout(columnsRow, 0, 0);
    grid->addLayout(rowsRow, 0, 1, 1, 2);
    grid->addWidget(preview_, 1, 0, 1, 2);
    grid->addWidget(scrollV_, 1, 2);
    grid->addWidget(scrollH_, 2, 0, 1, 2);
    grid->addWidget(rowsField_, 0, 2);
    grid->addWidget(columnsField_, 2, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(command1_);
    buttons->addWidget(command2_);
    grid->addLayout(buttons, 3, 0, 1, 3);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);

    connect(scrollH_, &QScrollBar::valueChanged, this, &GridDialog::refresh);
    connect(scrollV_, &QScrollBar::valueChanged, this, &GridDialog::refresh);
    connect(columnsField_, &QSpinBox::valueChanged, this,
            [this](int count) { scrollH_->setValue(scrollH_->maximum() - count + 1); });
    connect(rowsField_, &QSpinBox::valueChanged, this,
            [this](int count) { scrollV_->setValue(scrollV_->maximum() - count + 1); });
    connect(command1_, &QPushButton::clicked, this, &QDialog::accept);
    connect(command2_, &QPushButton::clicked, this, &QDialog::reject);
    setCounts(2, 2);
    resize(320, 300);
}

int GridDialog::columns() const {
    return gridCount(static_cast<int16_t>(scrollH_->maximum()),
                     static_cast<int16_t>(scrollH_->value()));
}

int GridDialog::rows() const {
    return gridCount(static_cast<int16_t>(scrollV_->maximum()),
                     static_cast<int16_t>(scrollV_->value()));
}

void GridDialog::setCounts(int columns, int rows) {
    scrollH_->setValue(scrollH_->maximum() - columns + 1);
    scrollV_->setValue(scrollV_->maximum() - rows + 1);
    refresh();
}

void GridDialog::refresh() {
    columnsLabel_->setText(QString::number(columns()));
    rowsLabel_->setText(QString::number(rows()));
    for (const auto& [field, count] : {std::pair{columnsField_, columns()}, {rowsField_, rows()}}) {
        if (field->value() != count) {
            const QSignalBlocker quiet(field);
            field->setValue(count);
        }
    }
    preview_->update();
}

} // namespace mervak
