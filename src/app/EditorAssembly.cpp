#include "app/EditorAssembly.h"

#include "action/KeysPreview.h"
#include "editor/widgets/Captions.h"

#include <QAction>

namespace mervak {

EditorAssembly::EditorAssembly(Session& session, MainWindow& window, const Effects& effects)
    : window_(window),
      editor_(
          EditorController::Context{session, effects.beep, effects.runActionText,
                                    [](const QString& text) { return KeysPreview::of(text).text; },
                                    effects.status},
          EditorController::Views{window, *window.sheetPane(), *window.panel(),
                                  *window.pageFrame()}),
      document_(
          DocumentController::Context{session,
                                      [this, replaced = effects.templateReplaced](bool another) {
                                          editor_.refresh(another);
                                          if (replaced)
                                              replaced();
                                      },
                                      effects.status},
          window),
      libraries_(SymbolLibrary::installedFolder(), {}),
      symbols_(SymbolCommands::Context{session, editor_, window, effects.beep, effects.status},
               libraries_) {
    editor_.bindActions(window.editorActions());
    setSymbolFiles(SymbolLibrary::filesIn(SymbolLibrary::installedFolder()));
    const EditorActions& actions = window.editorActions();
    QObject::connect(actions.chooseSymbol, &QAction::triggered, &symbols_,
                     &SymbolCommands::chooseSymbolForArea);
    QObject::connect(actions.wordSheet, &QAction::triggered, &symbols_,
                     &SymbolCommands::makeWordSheet);
}

void EditorAssembly::translate(Language language) {
    window_.translate(language);
    translateAllWindows(language);
    editor_.retranslate();
    document_.refreshTitle();
}

void EditorAssembly::setSymbolFiles(const SymbolFileLookup& symbols) {
    editor_.setSymbolFiles(symbols);
    document_.setSymbolFiles(symbols);
}

void EditorAssembly::refresh() {
    editor_.refresh();
    document_.refreshTitle();
}

} // namespace mervak
