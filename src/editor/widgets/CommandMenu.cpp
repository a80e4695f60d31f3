#include "editor/widgets/CommandMenu.h"

#include "editor/widgets/Captions.h"

namespace mervak {

namespace {

QString keyOf(const QStringList& captions) {
    return captions.join(u'/');
}

} // namespace

CommandMenu::CommandMenu(Language language, QWidget* parent) : QMenu(parent) {
    setToolTipsVisible(true);
    for (const CommandEntry& entry : commandEntries()) {
        QMenu* menu = submenu(entry.menuPath.mid(0, entry.menuPath.size() - 1), language);
        QAction* action = menu->addAction(QString());
        setCaption(action, entry.menuPath.last(), language);
        action->setData(keyOf(entry.menuPath));
        // The notation it inserts, so that the menu also teaches it.
        action->setToolTip(commandText(entry, QStringLiteral("...")));
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
    menu->setToolTipsVisible(true);
    setCaption(menu, captions.last(), language);
    submenus_.insert(key, menu);
    return menu;
}

void CommandMenu::addEntries(QMenu* menu, const QList<CatalogueEntry>& entries,
                             const std::function<QString(const CatalogueEntry&)>& textOf) {
    QHash<QString, QMenu*> groups;
    for (const CatalogueEntry& entry : entries) {
        QMenu* target = menu;
        if (!entry.group.isEmpty()) {
            target = groups.value(entry.group);
            if (!target) {
                target = menu->addMenu(entry.group);
                target->setToolTipsVisible(true);
                groups.insert(entry.group, target);
            }
        }
        const QString text = textOf(entry);
        QAction* action = target->addAction(entry.name);
        action->setToolTip(text);
        connect(action, &QAction::triggered, this, [this, text] { emit textChosen(text); });
    }
}

void CommandMenu::setCatalogue(const MacroCatalogue& catalogue, Language language) {
    delete programs_;
    delete macros_;
    delete macrosSeparator_;
    programs_ = nullptr;
    macros_ = nullptr;
    macrosSeparator_ = nullptr;
    QAction* browse = actionFor({QStringLiteral("Executar programes")});
    browse->setVisible(catalogue.programs().isEmpty());
    if (!catalogue.programs().isEmpty()) {
        programs_ = new QMenu(this);
        programs_->setToolTipsVisible(true);
        setCaption(programs_, QStringLiteral("Executar programes"), language);
        insertMenu(browse, programs_);
        QAction* other = programs_->addAction(Message(language, Msg::OtherProgram));
        connect(other, &QAction::triggered, browse, &QAction::trigger);
        programs_->addSeparator();
        addEntries(programs_, catalogue.programs(), [](const CatalogueEntry& entry) {
            return MacroCatalogue::executeBlock(entry.text);
        });
    }
    if (!catalogue.macros().isEmpty()) {
        macros_ = new QMenu(this);
        macros_->setToolTipsVisible(true);
        setCaption(macros_, QStringLiteral("Carregar macros"), language);
        QAction* first = actions().value(0);
        insertMenu(first, macros_);
        macrosSeparator_ = insertSeparator(first);
        addEntries(macros_, catalogue.macros(),
                   [](const CatalogueEntry& entry) { return entry.text; });
    }
}

QAction* CommandMenu::actionFor(const QStringList& menuPath) const {
    const QString key = keyOf(menuPath);
    for (QAction* action : findChildren<QAction*>())
        if (action->data().toString() == key)
            return action;
    return nullptr;
}

} // namespace mervak
