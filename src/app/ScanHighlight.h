#pragma once

#include "editor/AreaGeometry.h"
#include "editor/widgets/SheetView.h"

#include <QWidget>
#include <optional>

namespace mervak {

// The scanning highlight over a sheet view: a thick frame, black outside and
// yellow inside, that shows on any picture, around the highlighted row or item.
// It lets every mouse press through to the sheet.
class ScanHighlight : public QWidget {
    Q_OBJECT
public:
    explicit ScanHighlight(SheetView* sheet);

    // The rectangle around the highlighted Areas; none hides the frame.
    void setFrame(const std::optional<SheetRect>& frame);

    static constexpr int kOuterWidth = 12;
    static constexpr int kInnerWidth = 6;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    SheetView* sheet_;
    std::optional<SheetRect> frame_;
};

} // namespace mervak
