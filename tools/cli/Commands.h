#pragma once

#include <QStringList>
#include <QTextStream>

namespace mervak::cli {

struct CommandContext {
    QString homeFolder; // where page models live
    QTextStream& out;
    QTextStream& err;
};

// Runs one command with its arguments (the command name excluded); returns the exit status.
int runCommand(const QString& command, const QStringList& arguments, CommandContext& context);

} // namespace mervak::cli
