#pragma once

#include "editor/widgets/SheetView.h"

#include <QWidget>

namespace mervak {

// The on-screen tablet: a window showing the current page's sheet that never takes
// the keyboard focus, so the pupil's program keeps it while the sheet is clicked.
class VirtualTablet : public QWidget {
    Q_OBJECT
public:
    explicit VirtualTablet(QWidget* parent = nullptr);

    SheetView* sheet() const { return sheet_; }

    // The hourglass shown between a click and its dispatch.
    void showBusy(bool busy);

signals:
    void pressed(QPointF sheetPoint);
    void visibilityChanged(bool visible);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    SheetView* sheet_;
};

} // namespace mervak
