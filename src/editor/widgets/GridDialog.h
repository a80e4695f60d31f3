#pragma once

#include "platform/Language.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QScrollBar;
class QSpinBox;

namespace mervak {

// The dialog Quadricula: the number of columns (ScrollH) and rows (ScrollV) to
// split the selected Area into. Each count is the bar's maximum minus its value
// plus 1; both bars are laid out so that moving right or up gives more. A
// small picture shows the grid in the Area's shape. A number field beside each
// bar lets the count be typed.
class GridDialog : public QDialog {
    Q_OBJECT
public:
    static constexpr int kMaxCount = 20;

    // `shape` is the Area's width and height in sheet units.
    GridDialog(Language language, QSizeF shape, QWidget* parent = nullptr);

    int columns() const;
    int rows() const;
    void setCounts(int columns, int rows);

    QPushButton* acceptButton() const { return command1_; }
    QSpinBox* columnsField() const { return columnsField_; }
    QSpinBox* rowsField() const { return rowsField_; }

private:
    void refresh();

    QScrollBar* scrollH_;
    QScrollBar* scrollV_;
    QLabel* columnsLabel_;
    QLabel* rowsLabel_;
    QSpinBox* columnsField_;
    QSpinBox* rowsField_;
    QWidget* preview_;
    QPushButton* command1_;
    QPushButton* command2_;
};

} // namespace mervak
