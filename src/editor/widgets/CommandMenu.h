#pragma once

#include "editor/CommandCatalogue.h"
#include "platform/Language.h"

#include <QMenu>

namespace mervak {

// The menu of commands an ActionText can hold, each entry under its captions.
class CommandMenu : public QMenu {
    Q_OBJECT
public:
    explicit CommandMenu(Language language, QWidget* parent = nullptr);

    // The action of the entry with these Catalan captions, or nullptr.
    QAction* actionFor(const QStringList& menuPath) const;

signals:
    void commandChosen(const CommandEntry& entry);

private:
    QMenu* submenu(const QStringList& captions, Language language);

    QHash<QString, QMenu*> submenus_; // by the Catalan captions joined with "/"
};

} // namespace mervak
