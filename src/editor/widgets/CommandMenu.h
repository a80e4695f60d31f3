#pragma once

#include "action/MacroCatalogue.h"
#include "editor/CommandCatalogue.h"
#include "platform/Language.h"

#include <QMenu>
#include <functional>

namespace mervak {

// The menu of commands an ActionText can hold, each entry under its captions,
// with the programs and macros of the catalogue.
class CommandMenu : public QMenu {
    Q_OBJECT
public:
    explicit CommandMenu(Language language, QWidget* parent = nullptr);

    // The action of the entry with these Catalan captions, or nullptr.
    QAction* actionFor(const QStringList& menuPath) const;

    // Offers the catalogue's programs under "Executar programes", after message
    // 12 (">>> ALTRES", which asks for a file), and its macros under "Carregar
    // macros"; called again, it rebuilds them in `language`.
    void setCatalogue(const MacroCatalogue& catalogue, Language language);

signals:
    void commandChosen(const CommandEntry& entry);
    // A program's block or a macro's ActionText, to insert as it stands.
    void textChosen(const QString& text);

private:
    QMenu* submenu(const QStringList& captions, Language language);
    void addEntries(QMenu* menu, const QList<CatalogueEntry>& entries,
                    const std::function<QString(const CatalogueEntry&)>& textOf);

    QHash<QString, QMenu*> submenus_; // by the Catalan captions joined with "/"
    QMenu* programs_ = nullptr;
    QMenu* macros_ = nullptr;
    QAction* macrosSeparator_ = nullptr;
};

} // namespace mervak
