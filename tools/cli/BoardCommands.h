#pragma once

#include "Commands.h"
#include "openboard/BoardMessages.h"

namespace mervak::cli {

// "import BOARD.obf|BOARD.obz -o FILE.mvw" and "export FILE.mvw -o BOARD.obz":
// each reads its own options; the arguments exclude the command's name.
int runImportCommand(const QStringList& arguments, CommandContext& context);
int runExportCommand(const QStringList& arguments, CommandContext& context);

// "IN -o OUT" of a board command. A non-zero status ends the command: -1 after
// printing its help, else the exit status after printing why.
struct BoardCommandLine {
    QString input;
    QString output;
    int status = 0;
};
BoardCommandLine parseBoardCommandLine(const QString& command, const QStringList& arguments,
                                       CommandContext& context);

// Prints what did not come across, one line each, on stderr.
void printBoardNotes(const QList<BoardNote>& notes, CommandContext& context);

} // namespace mervak::cli
