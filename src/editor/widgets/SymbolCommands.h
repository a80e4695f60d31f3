#pragma once

#include "session/Session.h"
#include "sheet/SymbolLibrary.h"

#include <QObject>
#include <functional>

class QWidget;

namespace mervak {

class EditorController;

// The editor's commands of the symbol library: a symbol for the selected Area's cell,
// and a sheet made from a word list. Both can be undone.
class SymbolCommands : public QObject {
    Q_OBJECT
public:
    struct Context {
        Session& session;
        EditorController& editor;
        QWidget& window; // parent of the dialogs
        std::function<void()> beep;
        std::function<void(const QString&)> showStatus;
    };

    SymbolCommands(Context context, SymbolLibraries& libraries, QObject* parent = nullptr);

    // Opens the picker on `words`; the picture a cell stores for the choice, or empty
    // when the teacher cancelled.
    QString pickSymbol(const QString& words);

    // The selected Area's cell gets the picked symbol; a beep without a selected Area.
    void chooseSymbolForArea();

    // Asks for the words and the grid and adds the pages.
    void makeWordSheet();

private:
    // In the interface's language, with the teacher's folders as MERVAK.INI lists them now.
    const SymbolLibrary& library();

    Context context_;
    SymbolLibraries& libraries_;
};

} // namespace mervak
