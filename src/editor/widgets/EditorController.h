#pragma once

#include "editor/AreaEditor.h"
#include "editor/PageEditor.h"
#include "editor/UndoSnapshot.h"
#include "editor/widgets/AreaPanel.h"
#include "editor/widgets/EditorActions.h"
#include "editor/widgets/PageFrame.h"
#include "editor/widgets/SheetInteraction.h"
#include "editor/widgets/SheetPane.h"
#include "sheet/PictureFiles.h"
#include "sheet/ReadingGrid.h"

#include <QObject>
#include <functional>

namespace mervak {

// Binds the editor's widgets (sheet pane, side panel, page frame) to the Area
// and page edits, and keeps them showing the open Template. The menus of the
// main window call its commands.
class EditorController : public QObject {
    Q_OBJECT
public:
    struct Context {
        Session& session;
        std::function<void()> beep;
        std::function<void(const QString&)> runActionText; // the "try it" button
        std::function<QString(const QString&)> areaLabel;  // an Area's label from its ActionText
        std::function<void(const QString&)> showStatus;
    };
    struct Views {
        QWidget& window; // parent of the dialogs
        SheetPane& pane;
        AreaPanel& panel;
        PageFrame& frame;
    };

    EditorController(Context context, Views views, QObject* parent = nullptr);

    AreaEditor& areas() { return areas_; }
    PageEditor& pages() { return pages_; }

    // Connects the editor's menu entries to its commands.
    void bindActions(const EditorActions& actions);

    // Makes `before` the state "&Desfer" goes back to, after a change made
    // elsewhere (the properties dialog).
    void keepForUndo(const Template& before);

    // Shows the Template again after it was replaced or changed elsewhere;
    // `anotherTemplate` forgets the undo, which belongs to the one before.
    void refresh(bool anotherTemplate = false);
    void retranslate();

    void setDrawMode(bool on);
    void subdivide();
    void undo();
    void previousPage();
    void nextPage();
    // Opens the page frame for an operation; `before` preselects "Inserir abans".
    void openPageFrame(PageFrame::Operation operation, bool before = false);
    void deletePage();
    // Asks for a grid of cells and makes it, on a new page or the current one.
    void composeGrid();

    // Runs a command menu entry: file commands ask for their file first.
    void insertCommand(const CommandEntry& entry);
    // Inserts text into the selected Area's ActionText at the cursor.
    void insertText(const QString& text);

    // The programs and macros the command menu offers; kept by the caller.
    // The session's macro catalogue was read again.
    void refreshCatalogue();

    // What the sheet shows, for other views of it: the current page's Areas
    // and the sheet image (read again only when its name or file changed). A
    // composed page is the page as it prints, drawn again only when it changed.
    QList<SheetArea> sheetAreas() const;
    QImage sheetPicture();

    // Where library symbols are found; until it is given, symbols show nothing.
    void setSymbolFiles(SymbolFileLookup symbols) { symbols_ = std::move(symbols); }
    // The open Template's pictures: its folder (the working folder while
    // untitled) and the symbol library.
    PictureFiles pictureFiles() const;

signals:
    // Areas, page or selection changed: other views of the sheet follow.
    void templateChanged();
    // A press on the sheet outside the drawing mode, in sheet units, while the
    // whole sheet is in view.
    void sheetPressed(QPointF sheetPoint);

private:
    void wirePanel();
    void wirePane();
    void wireCells();
    void showCell(const Area* area);
    QImage composedPicture();
    // Stores a chosen picture file the way the Template names files.
    QString storedPicture(const QString& path) const;
    QString choosePicture(const QString& title);
    void setCellPicture(const QString& stored);
    void keepPastedPicture(const QImage& image);
    void showTemplate();
    void showKeysPreview(const Area* area);
    void confirmPageFrame();
    void report(const std::optional<TemplateError>& error);
    QString chooseCommandFile(const CommandEntry& entry);

    Context context_;
    Views views_;
    UndoSnapshot snapshot_;
    AreaEditor areas_;
    PageEditor pages_;
    SheetInteraction interaction_;
    EditorActions actions_;
    QString picturePath_;
    QImage picture_;
    SymbolFileLookup symbols_;
    QString composedKey_;
    QImage composed_;
    int gridColumns_ = 2;
    int gridRows_ = 2;
    GridSpec cellGrid_;
};

} // namespace mervak
