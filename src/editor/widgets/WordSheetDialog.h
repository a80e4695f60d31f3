#pragma once

#include "platform/Language.h"
#include "sheet/WordSheet.h"

#include <QDialog>

class QCheckBox;
class QDoubleSpinBox;
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
    QSpinBox* rowsField() const { return rows_; }
    QSpinBox* columnsField() const { return columns_; }
    QCheckBox* navigationField() const { return navigation_; }
    QPushButton* acceptButton() const { return accept_; }

private:
    void refresh();

    Language language_;
    QPlainTextEdit* words_;
    QSpinBox* rows_;
    QSpinBox* columns_;
    QDoubleSpinBox* margin_;
    QDoubleSpinBox* gap_;
    QCheckBox* navigation_;
    QLabel* summary_;
    QPushButton* accept_;
};

} // namespace mervak
