#pragma once

#include "editor/widgets/SheetGridFields.h"
#include "platform/Language.h"
#include "sheet/WordSheet.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

namespace mervak {

// A sheet from a word list: the teacher types or pastes the words and picks the rows and
// columns; the dialog says how many pages that makes.
class WordSheetDialog : public QDialog {
    Q_OBJECT
public:
    explicit WordSheetDialog(Language language, QWidget* parent = nullptr);

    QStringList words() const;
    WordSheetLayout sheetLayout() const;

    QPlainTextEdit* wordField() const { return words_; }
    QSpinBox* rowsField() const { return grid_.rows; }
    QSpinBox* columnsField() const { return grid_.columns; }
    QCheckBox* navigationField() const { return navigation_; }
    QPushButton* acceptButton() const { return accept_; }

private:
    void refresh();

    Language language_;
    QPlainTextEdit* words_;
    SheetGridFields grid_;
    QCheckBox* navigation_;
    QLabel* summary_;
    QPushButton* accept_;
};

} // namespace mervak
