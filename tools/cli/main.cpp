#include "ActionCommand.h"
#include "CliText.h"
#include "Commands.h"
#include "SheetCommands.h"
#include "platform/HomeFolder.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QTextStream>
#include <memory>
#include <vector>

using namespace mervak;

namespace {

QStringList argumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

// "action" reads its own options from an argv whose second word is "action";
// the tool's options that came before it are left out.
int runAction(const QString& program, const QStringList& actionArguments,
              const QString& homeFolder) {
    std::vector<QByteArray> words{program.toLocal8Bit(), QByteArrayLiteral("action")};
    for (const QString& argument : actionArguments)
        words.push_back(argument.toLocal8Bit());
    std::vector<char*> argv;
    for (QByteArray& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    return cli::runActionCommand(static_cast<int>(words.size()), argv.data(), homeFolder);
}

} // namespace

int main(int argc, char** argv) {
    const QStringList all = argumentsOf(argc, argv);
    QCommandLineParser parser;
    // The tool's own options come before the command; the rest is the command's.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    const QCommandLineOption home(QStringLiteral("home"), QString(), QStringLiteral("dir"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QString());
    const QCommandLineOption version(QStringLiteral("version"), QString());
    parser.addOptions({home, help, version});
    const auto error = parseCommandLine(parser, all);
    const QString homeFolder = chooseHomeFolder(currentHomeFolderInputs(parser.value(home)));
    cli::setLanguage(cli::chooseLanguage(homeFolder, qEnvironmentVariable("LANG")));
    QTextStream out(stdout);
    QTextStream err(stderr);
    if (error) {
        err << error->text(cli::language()) << '\n';
        return cli::kUsage;
    }
    if (parser.isSet(version)) {
        out << "mervak-cli " MERVAK_VERSION "\n";
        return cli::kSuccess;
    }
    if (parser.isSet(help)) {
        out << cli::generalHelp();
        return cli::kSuccess;
    }
    const QStringList command = parser.positionalArguments();
    if (command.isEmpty()) {
        err << cli::generalHelp();
        return cli::kUsage;
    }
    if (command.first() == QLatin1String("action"))
        return runAction(all.first(), command.mid(1), homeFolder);
    std::unique_ptr<QCoreApplication> app;
    if (cli::drawsSheets(command.first())) {
        // Sheets are drawn off screen, with or without a display.
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    cli::CommandContext context{homeFolder, out, err};
    return cli::runCommand(command.first(), command.mid(1), context);
}
