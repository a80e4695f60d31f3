#pragma once

#include "platform/ProgramLauncher.h"

#include <QStringList>

namespace mervak {

// The program and its arguments in a command line: blank-separated words, double
// quotes grouping blanks into a word, and three double quotes standing for one
// literal double quote. Empty when the line holds no word.
QStringList splitCommandLine(const QString& commandLine);

// Starts programs with QProcess::startDetached: they outlive this process.
class QtProgramLauncher : public ProgramLauncher {
public:
    // A relative program is looked for in `workingFolder` first, as the classic
    // launcher looks in the current folder, then (a bare name) in PATH.
    // `workingFolder` is also the program's working folder; this process's own when
    // empty.
    std::optional<std::int64_t> start(const QString& commandLine,
                                      const QString& workingFolder) override;
};

} // namespace mervak
