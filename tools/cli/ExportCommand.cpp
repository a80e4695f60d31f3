#include "BoardCommands.h"
#include "CliText.h"
#include "SheetPictures.h"
#include "openboard/OpenBoardFile.h"
#include "template/TemplateFile.h"

#include <QFileInfo>

namespace mervak::cli {

// Writes a Template as a package of boards, one per page. Exit status 3 when
// something will not show in other programs (each said on stderr).
int runExportCommand(const QStringList& arguments, CommandContext& c) {
    const BoardCommandLine line = parseBoardCommandLine(QStringLiteral("export"), arguments, c);
    if (line.status != 0)
        return line.status < 0 ? kSuccess : line.status;
    if (!line.output.endsWith(QStringLiteral(".obz"), Qt::CaseInsensitive)) {
        c.err << text(QStringLiteral("El nom de sortida ha d'acabar en .obz: ")) << line.output
              << '\n';
        return kUsage;
    }
    Template t;
    const OpenOutcome opened = openTemplate(t, line.input);
    if (opened.error) {
        c.err << errorText(*opened.error, line.input) << '\n';
        return kFailure;
    }
    const QFileInfo file(t.TemplateFileName);
    const QString title = t.descripcio.isEmpty() ? file.completeBaseName() : t.descripcio;
    const BoardFileOutcome outcome = exportBoardFile(t, line.output, title, picturesOf(t));
    if (outcome.error) {
        c.err << boardErrorText(language(), *outcome.error) << '\n';
        return kFailure;
    }
    c.out << text(QStringLiteral("Desat: ")) << outcome.written.join(u' ') << '\n';
    printBoardNotes(outcome.notes, c);
    return outcome.notes.isEmpty() ? kSuccess : kWithNotes;
}

} // namespace mervak::cli
