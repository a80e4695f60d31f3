#include "editor/widgets/SheetInteraction.h"

#include <cmath>

namespace mervak {

namespace {

// How near an edge, in pixels, a press still takes hold of it.
constexpr double kGripReachPixels = 6;

QPoint toUnits(QPointF point) {
    return {static_cast<int>(std::lround(point.x())), static_cast<int>(std::lround(point.y()))};
}

Qt::CursorShape cursorFor(Grip grip) {
    switch (grip) {
    case Grip::None:
        return Qt::CrossCursor;
    case Grip::Body:
        return Qt::SizeAllCursor;
    case Grip::Left:
    case Grip::Right:
        return Qt::SizeHorCursor;
    case Grip::Bottom:
    case Grip::Top:
        return Qt::SizeVerCursor;
    case Grip::BottomLeft:
    case Grip::TopRight:
        return Qt::SizeBDiagCursor;
    case Grip::BottomRight:
    case Grip::TopLeft:
        return Qt::SizeFDiagCursor;
    }
    return Qt::ArrowCursor;
}

} // namespace

SheetInteraction::SheetInteraction(SheetView& view, AreaEditor& editor, QObject* parent)
    : QObject(parent), view_(view), editor_(editor) {
    view_.setMouseTracking(true);
    view_.setFocusPolicy(Qt::StrongFocus);
    connect(&view_, &SheetView::pressed, this, &SheetInteraction::press);
    connect(&view_, &SheetView::moved, this, &SheetInteraction::move);
    connect(&view_, &SheetView::released, this, &SheetInteraction::release);
    connect(&view_, &SheetView::hovered, this, &SheetInteraction::hover);
    connect(&view_, &SheetView::nudged, this, &SheetInteraction::nudge);
}

void SheetInteraction::setDrawMode(bool on) {
    drawMode_ = on;
    gesture_ = Gesture::None;
    view_.setCursor(on ? Qt::CrossCursor : Qt::ArrowCursor);
}

Grip SheetInteraction::gripUnder(QPointF point) const {
    const Area* area = editor_.selected();
    if (!area)
        return Grip::None;
    return gripAt(rectOf(*area), point, kGripReachPixels * view_.unitsPerPixel());
}

void SheetInteraction::press(QPointF point) {
    view_.setFocus(Qt::MouseFocusReason);
    if (!drawMode_) {
        emit pressedAt(point);
        const QPoint units = toUnits(point);
        editor_.selectAt(static_cast<int16_t>(units.x()), static_cast<int16_t>(units.y()));
        if (editor_.selected())
            emit areaPicked();
        return;
    }
    start_ = point;
    if (const Grip grip = gripUnder(point); grip != Grip::None) {
        gesture_ = Gesture::Dragging;
        editor_.beginDrag(grip);
    } else {
        gesture_ = Gesture::Drawing;
        editor_.startDrawing(toUnits(point));
    }
}

void SheetInteraction::move(QPointF point) {
    if (gesture_ == Gesture::Dragging) {
        const QPoint delta = toUnits(point) - toUnits(start_);
        editor_.dragBy(delta.x(), delta.y());
    } else if (gesture_ == Gesture::Drawing) {
        editor_.drawTo(toUnits(point));
    }
}

void SheetInteraction::release(QPointF point) {
    const Gesture gesture = gesture_;
    gesture_ = Gesture::None;
    if (gesture == Gesture::Dragging) {
        move(point);
        editor_.endDrag();
    } else if (gesture == Gesture::Drawing) {
        editor_.drawTo(toUnits(point));
        if (!editor_.finishDrawing()) {
            const QPoint units = toUnits(point);
            editor_.selectAt(static_cast<int16_t>(units.x()), static_cast<int16_t>(units.y()));
        }
    }
}

void SheetInteraction::hover(QPointF point) {
    if (drawMode_)
        view_.setCursor(cursorFor(gripUnder(point)));
}

void SheetInteraction::nudge(int dx, int dy, bool resize) {
    if (resize)
        editor_.resizeArea(dx, dy);
    else
        editor_.moveArea(dx, dy);
}

} // namespace mervak
