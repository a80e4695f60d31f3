#include "BoardCommands.h"
#include "CliText.h"
#include "openboard/OpenBoardFile.h"

#include <QFileInfo>

namespace mervak::cli {

// Reads a board or a package of boards and saves it as a Template, its
// pictures in a folder beside it. Exit status 3 when something did not come
// across (each said on stderr).
int runImportCommand(const QStringList& arguments, CommandContext& c) {
    const BoardCommandLine line = parseBoardCommandLine(QStringLiteral("import"), arguments, c);
    if (line.status != 0)
        return line.status < 0 ? kSuccess : line.status;
    if (!line.output.endsWith(QStringLiteral(".mvw"), Qt::CaseInsensitive)) {
        c.err << text(QStringLiteral("El nom de sortida ha d'acabar en .mvw: ")) << line.output
              << '\n';
        return kUsage;
    }
    const BoardFileOutcome outcome =
        importBoardFile(line.input, QFileInfo(line.output).absoluteFilePath());
    if (outcome.error) {
        c.err << boardErrorText(language(), *outcome.error) << '\n';
        return kFailure;
    }
    for (const QString& file : outcome.written)
        c.out << text(QStringLiteral("Desat: ")) << file << '\n';
    printBoardNotes(outcome.notes, c);
    return outcome.notes.isEmpty() ? kSuccess : kWithNotes;
}

} // namespace mervak::cli
