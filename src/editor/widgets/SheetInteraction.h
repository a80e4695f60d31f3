#pragma once

#include "editor/AreaEditor.h"
#include "editor/widgets/SheetView.h"

#include <QObject>
#include <QPointF>

namespace mervak {

// What the mouse does on the editor's sheet. Normally a press is a press of the
// overlay keyboard: it is reported for dispatch and selects the Area under it.
// In the drawing mode ("&Dibuixar") nothing fires: dragging the selected Area
// moves it, dragging its edges or corners resizes it, dragging anywhere else
// draws a new Area, and a click without a drag selects.
class SheetInteraction : public QObject {
    Q_OBJECT
public:
    SheetInteraction(SheetView& view, AreaEditor& editor, QObject* parent = nullptr);

    void setDrawMode(bool on);

signals:
    // A press outside the drawing mode, in sheet units.
    void pressedAt(QPointF sheetPoint);
    // An Area was selected by a press outside the drawing mode.
    void areaPicked();

private:
    enum class Gesture { None, Dragging, Drawing };

    void press(QPointF point);
    void move(QPointF point);
    void release(QPointF point);
    void hover(QPointF point);
    void nudge(int dx, int dy, bool resize);
    Grip gripUnder(QPointF point) const;

    SheetView& view_;
    AreaEditor& editor_;
    bool drawMode_ = false;
    Gesture gesture_ = Gesture::None;
    QPointF start_;
};

} // namespace mervak
