#include "ActionCommand.h"
#include "CliText.h"
#include "Commands.h"
#include "platform/HomeFolder.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace mervak;

int main(int argc, char** argv) {
    if (argc > 1 && qstrcmp(argv[1], "action") == 0)
        return cli::runActionCommand(argc, argv);
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QStringList all = app.arguments().mid(1);
    const QStringList arguments = withoutHomeOption(all);
    if (arguments.isEmpty() || arguments[0] == QStringLiteral("--help") ||
        arguments[0] == QStringLiteral("-h")) {
        (arguments.isEmpty() ? err : out) << cli::generalHelp();
        return arguments.isEmpty() ? cli::kUsage : cli::kSuccess;
    }
    cli::CommandContext context{
        chooseHomeFolder(currentHomeFolderInputs(all, QCoreApplication::applicationDirPath())), out,
        err};
    return cli::runCommand(arguments[0], arguments.mid(1), context);
}
