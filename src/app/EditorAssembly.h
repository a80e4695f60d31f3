#pragma once

#include "app/DocumentController.h"
#include "app/MainWindow.h"
#include "editor/widgets/EditorController.h"
#include "editor/widgets/SymbolCommands.h"
#include "session/Session.h"

#include <functional>

namespace mervak {

// The editor and the file commands over the main window, wired together as the
// program runs them. The program gives the effects that reach the platform;
// the editor tests give recording ones, and so exercise this same wiring.
class EditorAssembly {
public:
    struct Effects {
        std::function<void()> beep;
        std::function<void(const QString&)> runActionText;
        std::function<void(const QString&)> status;
        // After a Template was opened or started anew and the editor shows it.
        std::function<void()> templateReplaced;
    };

    EditorAssembly(Session& session, MainWindow& window, const Effects& effects);

    EditorController& editor() { return editor_; }
    DocumentController& document() { return document_; }
    SymbolCommands& symbols() { return symbols_; }

    // Every caption of the editor's windows, and the title, in the language.
    void translate(Language language);
    // Shows the open Template from scratch: the sheet, the counters and the title.
    void refresh();
    // Where the sheet finds library symbols, when drawn and when saved.
    void setSymbolFiles(const SymbolFileLookup& symbols);

private:
    MainWindow& window_;
    EditorController editor_;
    DocumentController document_;
    SymbolLibraries libraries_;
    SymbolCommands symbols_;
};

} // namespace mervak
