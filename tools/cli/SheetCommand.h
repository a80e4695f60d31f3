#pragma once

#include "Commands.h"

#include <QStringList>

namespace mervak::cli {

// "sheet --words "W1 W2 ..." --rows R --columns C [--lang ca|es] [--nav] -o FILE.mvw":
// a new Template with a page per screenful of words, each with its best symbol, saved
// with a picture of each page beside it.
int runSheetCommand(const QStringList& arguments, CommandContext& context);

} // namespace mervak::cli
