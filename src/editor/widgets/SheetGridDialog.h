#pragma once

#include "editor/widgets/SheetGridFields.h"
#include "platform/Language.h"
#include "sheet/ReadingGrid.h"

#include <QDialog>

class QRadioButton;

namespace mervak {

// Asks for a grid of cells over the whole sheet: rows, columns, the margin at
// the sheet's edge and the gap between cells (millimetres), and whether it goes
// on a new page or on the current one.
class SheetGridDialog : public QDialog {
    Q_OBJECT
public:
    SheetGridDialog(Language language, const GridSpec& start, QWidget* parent = nullptr);

    GridSpec spec() const;
    bool onNewPage() const;

private:
    SheetGridFields grid_;
    QRadioButton* newPage_;
    QRadioButton* currentPage_;
};

} // namespace mervak
