#pragma once

class QAction;

namespace mervak {

// The menu entries of the editor, for the controllers to connect.
struct EditorActions {
    QAction* draw = nullptr; // "&Dibuixar": checkable
    QAction* addArea = nullptr;
    QAction* deleteArea = nullptr;
    QAction* maximumArea = nullptr;
    QAction* subdivide = nullptr;
    QAction* previousArea = nullptr;
    QAction* nextArea = nullptr;
    QAction* undo = nullptr;
    QAction* previousPage = nullptr;
    QAction* nextPage = nullptr;
    QAction* addPage = nullptr;
    QAction* insertPageBefore = nullptr;
    QAction* insertPageAfter = nullptr;
    QAction* deletePage = nullptr;
    QAction* savePageModel = nullptr;
    QAction* pastePageModel = nullptr;
    QAction* cellGrid = nullptr; // a grid of cells over the sheet, on a new page or this one
    QAction* zoomToFit = nullptr;
    QAction* zoomIn = nullptr;
    QAction* zoomOut = nullptr;
    QAction* chooseSymbol = nullptr; // the selected Area's picture from the symbol library
    QAction* wordSheet = nullptr;    // pages made from a word list
};

} // namespace mervak
