#include "BoardCommands.h"
#include "CliText.h"
#include "openboard/BoardMessages.h"
#include "platform/HomeFolder.h"

#include <QCommandLineParser>

namespace mervak::cli {

BoardCommandLine parseBoardCommandLine(const QString& command, const QStringList& arguments,
                                       CommandContext& c) {
    QCommandLineParser parser;
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QString());
    const QCommandLineOption output({QStringLiteral("o"), QStringLiteral("output")}, QString(),
                                    QStringLiteral("file"));
    parser.addOptions({help, output});
    BoardCommandLine line;
    if (const auto error = parseCommandLine(parser, QStringList{command} + arguments)) {
        c.err << error->text(language()) << '\n';
        line.status = kUsage;
        return line;
    }
    if (parser.isSet(help)) {
        c.out << commandHelp(command);
        line.status = -1;
        return line;
    }
    if (parser.positionalArguments().size() != 1 || parser.value(output).isEmpty()) {
        c.err << commandHelp(command);
        line.status = kUsage;
        return line;
    }
    line.input = parser.positionalArguments().first();
    line.output = parser.value(output);
    return line;
}

void printBoardNotes(const QList<BoardNote>& notes, CommandContext& c) {
    for (const BoardNote& note : notes)
        c.err << boardNoteText(language(), note) << '\n';
}

} // namespace mervak::cli
