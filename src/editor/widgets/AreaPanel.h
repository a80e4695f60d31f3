#pragma once

#include "editor/AreaEditor.h"
#include "editor/widgets/ActionTextEdit.h"
#include "editor/widgets/CellPanel.h"
#include "editor/widgets/CommandMenu.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;
class QVBoxLayout;

namespace mervak {

// The editor's side panel: the area counter with PrevArea and NextArea, the
// coordinate fields TxX0, TxX1, TxY0 and TxY1, the ActionText field TxText with
// its command menu and "try it" button, the check box ChRepe, and the page
// counter with pAG_ANT and PAG_SEG. It shows what it is given and reports
// what the user does.
class AreaPanel : public QWidget {
    Q_OBJECT
public:
    explicit AreaPanel(Language language, QWidget* parent = nullptr);

    ActionTextEdit* actionText() const { return actionText_; }
    QLineEdit* field(Coordinate which) const;
    QCheckBox* repeatReadings() const { return repeat_; }
    CommandMenu* commands() const { return commands_; }
    QPushButton* tryButton() const { return try_; }
    QLabel* keysPreview() const { return keysPreview_; }
    QLabel* notationProblem() const { return notationProblem_; }
    QLabel* areaCounter() const { return areaCounter_; }
    QLabel* pageCounter() const { return pageCounter_; }
    CellPanel* cells() const { return cells_; }

    // Room below the page counter for the page frame.
    void addBelowPages(QWidget* widget);

    // The selected Area's fields; all empty and disabled without one.
    void showArea(const Area* area);
    void setCounters(const QString& areaCounter, const QString& pageCounter);
    // What the ActionText will type; `problem`, when not empty, says what is
    // wrong with it, and the field marks `markLength` characters from `markFrom`.
    void showKeysPreview(const QString& preview, const QString& problem = {},
                         qsizetype markFrom = -1, qsizetype markLength = 0);

signals:
    void previousAreaClicked();
    void nextAreaClicked();
    void previousPageClicked();
    void nextPageClicked();
    void coordinateTyped(Coordinate which, int value);
    void actionTextEdited(const QString& text);
    void repeatReadingsToggled(bool on);
    void tryClicked();

private:
    QWidget* buildAreaGroup(Language language);
    QWidget* buildCoordinates();
    void buildKeysPreview(QVBoxLayout* box, Language language);
    QWidget* buildPageGroup(Language language);
    QToolButton* arrowButton(const QString& caption, const QString& tip, Language language);

    ActionTextEdit* actionText_;
    QList<QPair<Coordinate, QLineEdit*>> fields_;
    QCheckBox* repeat_ = nullptr;
    CommandMenu* commands_ = nullptr;
    QPushButton* commandButton_ = nullptr;
    QPushButton* try_ = nullptr;
    QLabel* keysPreview_ = nullptr;
    QLabel* notationProblem_ = nullptr;
    QLabel* areaCounter_ = nullptr;
    QLabel* pageCounter_ = nullptr;
    CellPanel* cells_ = nullptr;
    QVBoxLayout* layout_ = nullptr;
};

} // namespace mervak
