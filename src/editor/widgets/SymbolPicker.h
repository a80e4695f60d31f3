#pragma once

#include "platform/Language.h"
#include "sheet/SymbolLibrary.h"

#include <QDialog>
#include <QHash>
#include <QPixmap>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace mervak {

// Finds a picture for a cell: the teacher types a word in the interface's language and
// picks one of the library's symbols or of their own pictures, each shown as it prints.
class SymbolPicker : public QDialog {
    Q_OBJECT
public:
    static constexpr int kShown = 60;

    SymbolPicker(const SymbolLibrary& library, Language language, QWidget* parent = nullptr);

    // Searches at once, as typing does.
    void search(const QString& words);

    // What a cell stores for the chosen picture ("symbol:1F415" or a path); empty before
    // a choice.
    QString chosenPicture() const;
    QString chosenName() const;

    QLineEdit* searchField() const { return field_; }
    QListWidget* results() const { return results_; }
    QPushButton* acceptButton() const { return accept_; }

private:
    void showMatches(const QString& words);
    QPixmap preview(const Symbol& symbol);
    void refreshChoice();

    const SymbolLibrary& library_;
    Language language_;
    QLineEdit* field_;
    QListWidget* results_;
    QLabel* note_;
    QPushButton* accept_;
    QList<Symbol> shown_;
    QHash<QString, QPixmap> previews_;
};

} // namespace mervak
