#include "editor/widgets/CommandMenu.h"

#include "editor/widgets/Captions.h"

namespace mervak {

namespace {

QString keyOf(const QStringList& captions) {
    return captions.join(u'/');
}

} // namespace

CommandMenu::CommandMenu(Language language, QWidget* parent) : QMenu(parent) {
    for (const CommandEntry& entry : commandEntries()) {
        QMenu* menu = submenu(entry.menuPath.mid(0, entry.menuPath.size() - 1), language);
        QAction* action = menu->addAction(QString());
        setCaption(action, entry.menuPath.last(), language);
        action->setData(keyOf(entry.menuPath));
        const CommandEntry* chosen = &entry;
        connect(action, &QAction::triggered, this, [this, chosen] { emit commandChosen(*chosen); });
    }
}

QMenu* CommandMenu::submenu(const QStringList& captions, Language language) {
    if (captions.isEmpty())
        return this;
    const QString key = keyOf(captions);
    if (QMenu* known = submenus_.value(key))
        return known;
    QMenu* parentMenu = submenu(captions.mid(0, captions.size() - 1), language);
    QMenu* menu = parentMenu->addMenu(QString());
    setCaption(menu, captions.last(), language);
    submenus_.insert(key, menu);
    return menu;
}

QAction* CommandMenu::actionFor(const QStringList& menuPath) const {
    const QString key = keyOf(menuPath);
    for (QAction* action : findChildren<QAction*>())
        if (action->data().toString() == key)
            return action;
    return nullptr;
}

} // namespace mervak
