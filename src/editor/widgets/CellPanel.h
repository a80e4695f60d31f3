#pragma once

#include "platform/Language.h"
#include "template/AreaCell.h"

#include <QGroupBox>
#include <QImage>
#include <optional>

class QComboBox;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace mervak {

// The selected Area's cell as the sheet prints it: its picture (from a file,
// dropped on the panel or pasted), its label and where it stands, its
// background from the word-class palette or any colour, its border; and the
// current page's own picture ("Caràtula:"). It shows what it is given and
// reports each change as the whole new cell.
class CellPanel : public QGroupBox {
    Q_OBJECT
public:
    explicit CellPanel(Language language, QWidget* parent = nullptr);

    // `enabled` false when no Area is selected; `plainLabel` is what the label
    // shows while none is typed; `preview` the cell's picture, null for none.
    void showCell(bool enabled, const std::optional<AreaCell>& cell, const QString& plainLabel,
                  const QImage& preview);
    // The current page's own picture, as stored; empty for none.
    void showPagePicture(const QString& stored);

    QLineEdit* labelField() const { return label_; }
    QComboBox* placementBox() const { return placement_; }
    QToolButton* paletteButton(int index) const { return palette_.value(index); }

signals:
    void cellEdited(const std::optional<AreaCell>& cell);
    void pictureFileRequested(); // "Imatge..."
    void pictureFileDropped(const QString& path);
    void pictureImageGiven(const QImage& image); // pasted or dropped as pixels
    void pastePictureRequested();                // "Enganxar un dibuix"
    void pagePictureRequested();
    void pagePictureCleared();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildPictureRow(Language language);
    void buildLabelRows(Language language);
    void buildColourRows(Language language);
    void buildPageRow(Language language);
    // The cell as shown, with `change` made to it; a new cell starts with a border.
    void edit(const std::function<void(AreaCell&)>& change);
    void chooseColour(bool border);

    std::optional<AreaCell> cell_;
    QLabel* preview_ = nullptr;
    QPushButton* pictureButton_ = nullptr;
    QPushButton* pasteButton_ = nullptr;
    QToolButton* clearPicture_ = nullptr;
    QLineEdit* label_ = nullptr;
    QComboBox* placement_ = nullptr;
    QList<QToolButton*> palette_;
    QCheckBox* border_ = nullptr;
    QPushButton* removeCell_ = nullptr;
    QLineEdit* pagePicture_ = nullptr;
    QList<QWidget*> cellWidgets_;
};

} // namespace mervak
