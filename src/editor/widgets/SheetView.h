#pragma once

#include "editor/AreaGeometry.h"

#include <QImage>
#include <QList>
#include <QWidget>
#include <optional>

namespace mervak {

// One Area as the sheet shows it.
struct SheetArea {
    SheetRect rect;
    QString label;
    bool selected = false;
    int number = 0; // its place among the page's Areas, as the area counter counts; 0 shows none
};

// Draws the sheet picture of the current page with its Areas outlined (the
// selected one marked, with its grips), the rectangle being drawn, and turns
// mouse positions into sheet units. The sheet has the shape of the printed
// sheet and fills the widget as far as it can; its 120 x 120 units span it
// edge to edge, and the picture covers it as it is printed.
class SheetView : public QWidget {
    Q_OBJECT
public:
    explicit SheetView(QWidget* parent = nullptr);

    void setPicture(const QImage& picture);
    // The printed sheet's size, whose shape the sheet takes on the screen.
    void setSheetSize(QSizeF millimetres);
    void setAreas(const QList<SheetArea>& areas);
    void setDrawing(const std::optional<SheetRect>& rect);
    // A cross where a device points, in sheet units; none hides it.
    void setMarker(const std::optional<QPointF>& sheetPoint);

    // Where the sheet lies inside the widget.
    QRectF sheetRect() const;
    QPointF toSheetUnits(const QPointF& widgetPoint) const;
    QRectF toWidget(const SheetRect& rect) const;
    // Sheet units per widget pixel, horizontally.
    double unitsPerPixel() const;

    QSize sizeHint() const override { return {480, 480}; }

signals:
    // Left-button presses, drags and releases, and moves with no button held.
    void pressed(QPointF sheetPoint);
    void moved(QPointF sheetPoint);
    void released(QPointF sheetPoint);
    void hovered(QPointF sheetPoint);
    // Arrow keys while the view has the focus: a step of one unit (five with
    // Ctrl); `resize` when Shift is held.
    void nudged(int dx, int dy, bool resize);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintArea(QPainter& painter, const SheetArea& area) const;
    void paintGrips(QPainter& painter, const QRectF& box) const;
    void paintNumber(QPainter& painter, const QRectF& box, int number) const;
    void paintMarker(QPainter& painter) const;

    QImage picture_;
    QSizeF sheetSize_{1, 1};
    QList<SheetArea> areas_;
    std::optional<SheetRect> drawing_;
    std::optional<QPointF> marker_;
};

} // namespace mervak
