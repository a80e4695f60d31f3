#pragma once

#include <QImage>
#include <QList>
#include <QRect>
#include <QWidget>

namespace mervak {

// The sheet is 120 x 120 units, x to the right and y upwards from the lower-left
// corner, as the tablet reports them.
constexpr int kSheetUnits = 120;

struct SheetArea {
    int x0 = 0;
    int y0 = 0;
    int x1 = 0;
    int y1 = 0;
    QString label;
    bool selected = false;
};

// Draws the sheet picture of the current page with its Areas outlined, and turns
// mouse positions into sheet units.
class SheetView : public QWidget {
    Q_OBJECT
public:
    explicit SheetView(QWidget* parent = nullptr);

    void setPicture(const QImage& picture);
    void setAreas(const QList<SheetArea>& areas);
    void setBanner(const QString& text);

    // Where the sheet lies inside the widget: the picture's shape, as large as fits.
    QRectF sheetRect() const;
    QPointF toSheetUnits(const QPointF& widgetPoint) const;
    QRectF toWidget(const SheetArea& area) const;

    QSize sizeHint() const override { return {480, 480}; }

signals:
    void pressed(QPointF sheetPoint);
    void moved(QPointF sheetPoint);
    void released(QPointF sheetPoint);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void paintArea(QPainter& painter, const SheetArea& area) const;

    QImage picture_;
    QList<SheetArea> areas_;
    QString banner_;
};

} // namespace mervak
