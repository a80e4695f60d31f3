#include "editor/widgets/SheetPane.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>

namespace mervak {

namespace {

constexpr double kZoomSteps[] = {1.0, 1.5, 2.0, 3.0, 4.0};
constexpr int kBarPageStep = 10;

QLabel* valueLabel() {
    auto* label = new QLabel(QStringLiteral("0"));
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
    return label;
}

} // namespace

SheetPane::SheetPane(QWidget* parent)
    : QWidget(parent), sheet_(new SheetView), scroll_(new QScrollArea) {
    scroll_->setWidget(sheet_);
    scroll_->setWidgetResizable(true);
    scroll_->setAlignment(Qt::AlignCenter);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->viewport()->installEventFilter(this);
    buildBars();
}

SheetPane::CoordinateBar SheetPane::makeBar(Coordinate which, const char* name, bool vertical) {
    auto* bar = new QScrollBar(vertical ? Qt::Vertical : Qt::Horizontal);
    bar->setObjectName(QString::fromLatin1(name));
    bar->setRange(0, kSheetUnits);
    bar->setPageStep(kBarPageStep);
    bar->setEnabled(false);
    CoordinateBar coordinate{which, bar, valueLabel(), vertical};
    coordinate.value->setObjectName(QString::fromLatin1(name) + QStringLiteral("Label"));
    connect(bar, &QScrollBar::valueChanged, this,
            [this, coordinate](int value) { barMoved(coordinate, value); });
    return coordinate;
}

void SheetPane::hideCoordinateBars() {
    for (QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        child->setVisible(child == scroll_);
}

void SheetPane::buildBars() {
    bars_ = {makeBar(Coordinate::X0, "ScrollX0", false), makeBar(Coordinate::X1, "scrollx1", false),
             makeBar(Coordinate::Y0, "ScrollY0", true), makeBar(Coordinate::Y1, "ScrollY1", true)};
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(4);
    grid->addWidget(scroll_, 0, 0);
    auto* side = new QHBoxLayout;
    auto* below = new QVBoxLayout;
    const char* names[] = {"X0", "X1", "Y0", "Y1"};
    for (int i = 0; i < bars_.size(); ++i) {
        const CoordinateBar& b = bars_[i];
        auto* name = new QLabel(QString::fromLatin1(names[i]));
        name->setAlignment(Qt::AlignCenter);
        if (b.vertical) {
            auto* column = new QVBoxLayout;
            column->addWidget(name);
            column->addWidget(b.bar, 1, Qt::AlignHCenter);
            column->addWidget(b.value);
            side->addLayout(column);
        } else {
            auto* row = new QHBoxLayout;
            row->addWidget(name);
            row->addWidget(b.bar, 1);
            row->addWidget(b.value);
            below->addLayout(row);
        }
    }
    grid->addLayout(side, 0, 1);
    grid->addLayout(below, 1, 0);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(0, 1);
}

QScrollBar* SheetPane::bar(Coordinate which) const {
    for (const CoordinateBar& b : bars_)
        if (b.which == which)
            return b.bar;
    return nullptr;
}

QString SheetPane::barCaption(Coordinate which) const {
    for (const CoordinateBar& b : bars_)
        if (b.which == which)
            return b.value->text();
    return {};
}

int SheetPane::coordinateOf(const CoordinateBar& bar, int barValue) {
    return bar.vertical ? bar.bar->maximum() - barValue : barValue;
}

void SheetPane::barMoved(const CoordinateBar& bar, int value) {
    const int coordinate = coordinateOf(bar, value);
    bar.value->setText(QString::number(coordinate));
    emit coordinateEdited(bar.which, coordinate);
}

void SheetPane::showArea(const Area* area) {
    for (const CoordinateBar& b : bars_) {
        const QSignalBlocker quiet(b.bar);
        b.bar->setEnabled(area != nullptr);
        int coordinate = 0;
        if (area) {
            coordinate = b.which == Coordinate::X0   ? area->X0
                         : b.which == Coordinate::X1 ? area->X1
                         : b.which == Coordinate::Y0 ? area->Y0
                                                     : area->Y1;
        }
        const int clamped = clampToSheet(coordinate);
        b.bar->setValue(b.vertical ? b.bar->maximum() - clamped : clamped);
        b.value->setText(area ? QString::number(coordinateOf(b, b.bar->value())) : QString());
    }
}

void SheetPane::zoomIn() {
    for (double step : kZoomSteps)
        if (step > zoom_) {
            applyZoom(step);
            return;
        }
}

void SheetPane::zoomOut() {
    for (auto it = std::rbegin(kZoomSteps); it != std::rend(kZoomSteps); ++it)
        if (*it < zoom_) {
            applyZoom(*it);
            return;
        }
}

void SheetPane::zoomToFit() {
    applyZoom(1.0);
}

void SheetPane::applyZoom(double zoom) {
    zoom_ = zoom;
    const QSize view = scroll_->viewport()->size();
    if (zoom_ == 1.0)
        sheet_->setMinimumSize(120, 120);
    else
        sheet_->setMinimumSize((QSizeF(view) * zoom_).toSize());
}

bool SheetPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == scroll_->viewport() && event->type() == QEvent::Wheel) {
        auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers() & Qt::ControlModifier) {
            if (wheel->angleDelta().y() > 0)
                zoomIn();
            else if (wheel->angleDelta().y() < 0)
                zoomOut();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace mervak
