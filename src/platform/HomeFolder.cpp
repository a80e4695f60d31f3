#include "platform/HomeFolder.h"

#include "platform/PathResolver.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QProcessEnvironment>

namespace mervak {

namespace {

// A name given on the command line stays absolute; a relative one is taken
// against the current folder. Windows-form absolute names are kept as written.
QString absoluteTemplatePath(const QString& argument, const QString& currentFolder) {
    if (isAbsoluteStoredPath(argument))
        return argument;
    return QDir::cleanPath(QDir(currentFolder).filePath(argument));
}

// The unknown option as it was written: "-t.mvw" rather than the parser's "t"
// (a single dash starts a run of one-letter options).
QString unknownOption(const QStringList& arguments, const QStringList& unknown) {
    for (const QString& argument : arguments.mid(1)) {
        if (argument == QLatin1String("--"))
            break;
        const QString option = argument.section(u'=', 0, 0);
        if (option.size() < 2 || !option.startsWith(u'-'))
            continue;
        const bool longOption = option.startsWith(QLatin1String("--"));
        if (unknown.contains(longOption ? option.mid(2) : option.mid(1, 1)))
            return option;
    }
    const QString& name = unknown.first();
    return (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
}

} // namespace

QString chooseHomeFolder(const HomeFolderInputs& inputs) {
    if (!inputs.homeOption.isEmpty())
        return QDir::cleanPath(QDir(inputs.homeOption).absolutePath());
    if (!inputs.mervakHomeVariable.isEmpty())
        return QDir::cleanPath(QDir(inputs.mervakHomeVariable).absolutePath());
    if (QFileInfo::exists(QDir(inputs.executableFolder).filePath(QStringLiteral("MERVAK.INI"))))
        return QDir::cleanPath(inputs.executableFolder);
    const QString config = inputs.xdgConfigHome.isEmpty()
                               ? QDir(inputs.userHome).filePath(QStringLiteral(".config"))
                               : inputs.xdgConfigHome;
    return QDir::cleanPath(QDir(config).filePath(QStringLiteral("mervak")));
}

HomeFolderInputs currentHomeFolderInputs(const QString& homeOption) {
    const auto environment = QProcessEnvironment::systemEnvironment();
    return {homeOption, environment.value(QStringLiteral("MERVAK_HOME")),
            environment.value(QStringLiteral("XDG_CONFIG_HOME")), QDir::homePath(),
            executableFolder()};
}

QString programDataFolder(const QString& executableFolder) {
    const QString installed =
        QDir::cleanPath(QDir(executableFolder).filePath(QStringLiteral("../share/mervak")));
    return QFileInfo(installed).isDir() ? installed : executableFolder;
}

QString executableFolder() {
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
}

QString CommandLineError::text(Language language) const {
    return TranslateCaption(language, caption).arg(argument);
}

std::optional<CommandLineError> parseCommandLine(QCommandLineParser& parser,
                                                 const QStringList& arguments) {
    if (parser.parse(arguments))
        return std::nullopt;
    if (const QStringList unknown = parser.unknownOptionNames(); !unknown.isEmpty())
        return CommandLineError{QStringLiteral("Opció desconeguda: %1"),
                                unknownOption(arguments, unknown)};
    // A flag given a value ("--help=1"); otherwise the last argument is an
    // option that takes a value and has none.
    for (const QString& argument : arguments.mid(1)) {
        if (argument == QLatin1String("--"))
            break;
        if (argument.startsWith(u'-') && argument.contains(u'='))
            return CommandLineError{QStringLiteral("Aquesta opció no pren cap valor: %1"),
                                    argument};
    }
    return CommandLineError{QStringLiteral("Falta el valor després de %1"), arguments.last()};
}

ProgramCommandLine parseProgramCommandLine(const QStringList& arguments,
                                           const QString& currentFolder) {
    QCommandLineParser parser;
    const QCommandLineOption home(QStringLiteral("home"), QString(), QStringLiteral("dir"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QString());
    const QCommandLineOption version(QStringLiteral("version"), QString());
    const QCommandLineOption locked(QStringLiteral("locked"), QString());
    const QCommandLineOption platform(QStringLiteral("platform"), QString(),
                                      QStringLiteral("name"));
    parser.addOptions({home, help, version, locked, platform});
    ProgramCommandLine line;
    line.error = parseCommandLine(parser, arguments);
    line.homeOption = parser.value(home);
    line.help = parser.isSet(help);
    line.version = parser.isSet(version);
    line.locked = parser.isSet(locked);
    if (parser.isSet(platform)) {
        const std::optional<PlatformKind> kind = platformKindFromName(parser.value(platform));
        line.platform = kind.value_or(PlatformKind::Automatic);
        if (!line.error && !kind)
            line.error =
                CommandLineError{QStringLiteral("--platform vol x11, wayland, portal o auto: %1"),
                                 parser.value(platform)};
    }
    const QStringList templates = parser.positionalArguments();
    if (!line.error && templates.size() > 1)
        line.error =
            CommandLineError{QStringLiteral("Només es pot obrir una plantilla: %1"), templates[1]};
    if (!templates.isEmpty())
        line.templatePath = absoluteTemplatePath(templates.first(), currentFolder);
    return line;
}

QString programHelpCaption() {
    return QStringLiteral(
        "Ús: mervak [--home CARPETA] [--locked] [--platform NOM] [PLANTILLA]\n"
        "Obre la PLANTILLA (.mvw o .mvd) i la fa servir amb la tauleta.\n"
        "\n"
        "  --home CARPETA  la carpeta de MERVAK.INI i dels models de pàgina; si no\n"
        "                  s'hi posa, MERVAK_HOME, la carpeta del programa quan hi ha\n"
        "                  un MERVAK.INI, o $XDG_CONFIG_HOME/mervak\n"
        "  --locked        per a la sessió d'un alumne: sense els menús d'edició, i\n"
        "                  tancar demana la paraula del mestre (ParaulaTancar)\n"
        "  --platform NOM  com s'escriu als altres programes: x11, wayland (sway i\n"
        "                  altres compositors wlroots), portal (GNOME, KDE) o auto,\n"
        "                  com la clau Plataforma de MERVAK.INI\n"
        "  --help          aquesta ajuda\n"
        "  --version       la versió del programa\n"
        "  --              acaba les opcions: el que segueix és la plantilla\n");
}

} // namespace mervak
