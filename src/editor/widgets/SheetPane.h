#pragma once

#include "editor/AreaEditor.h"
#include "editor/widgets/SheetView.h"

#include <QWidget>

class QLabel;
class QScrollArea;
class QScrollBar;

namespace mervak {

// The editor's sheet in a scroll area, with the coordinate bars of the selected
// Area beside it: ScrollX0 and scrollx1 below, ScrollY0 and ScrollY1 at its
// right. Each bar runs over the sheet's 0..120 units and has a label with its
// coordinate; a vertical bar shows its maximum minus its value, so that moving
// its thumb up raises the number, as y grows upwards on the sheet.
class SheetPane : public QWidget {
    Q_OBJECT
public:
    explicit SheetPane(QWidget* parent = nullptr);

    SheetView* sheet() const { return sheet_; }
    QScrollBar* bar(Coordinate which) const;
    // The coordinate the bar's label shows.
    QString barCaption(Coordinate which) const;

    // Shows the selected Area's coordinates; disabled bars without one.
    void showArea(const Area* area);

    // Zoom: 1 fits the sheet into the pane; larger values enlarge it and let it scroll.
    // Leaves only the sheet: a pupil's session edits no coordinates.
    void hideCoordinateBars();

    void zoomIn();
    void zoomOut();
    void zoomToFit();
    bool fitsWhole() const { return zoom_ == 1.0; }

signals:
    // The user moved a bar: the coordinate's new value in sheet units.
    void coordinateEdited(Coordinate which, int value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct CoordinateBar {
        Coordinate which;
        QScrollBar* bar;
        QLabel* value;
        bool vertical;
    };

    void buildBars();
    CoordinateBar makeBar(Coordinate which, const char* name, bool vertical);
    void barMoved(const CoordinateBar& bar, int value);
    static int coordinateOf(const CoordinateBar& bar, int barValue);
    void applyZoom(double zoom);

    SheetView* sheet_;
    QScrollArea* scroll_;
    QList<CoordinateBar> bars_;
    double zoom_ = 1.0;
};

} // namespace mervak
