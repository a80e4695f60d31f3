#pragma once

#include "Commands.h"
#include "platform/Language.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace mervak::cli {

// "symbols search [--lang ca|es] [--limit N] WORDS...": one symbol a line, best first,
// its id, a tab and its name.
int runSymbolsCommand(const QStringList& arguments, CommandContext& context);

// "ca" or "es"; none for anything else.
std::optional<Language> languageOption(const QString& value);

// The teacher's picture folders of MERVAK.INI in the home folder.
QStringList pictureFolders(const QString& homeFolder);

} // namespace mervak::cli
