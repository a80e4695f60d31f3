#include "ActionOptions.h"

#include "CliText.h"
#include "platform/HomeFolder.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

namespace mervak::cli {

namespace {

const QStringList& valueOptions() {
    static const QStringList names = {"register", "clipboard", "seed",    "target",
                                      "folder",   "key-delay", "platform"};
    return names;
}

// Sets the option; false, with the reason, when its value is wrong.
bool apply(ActionOptions& options, const QString& option, const QString& value, QString* error) {
    bool ok = true;
    if (option == u"register") {
        options.memoryRegister = value;
    } else if (option == u"clipboard") {
        options.clipboard = value;
    } else if (option == u"target") {
        options.targetTitle = value;
    } else if (option == u"seed") {
        options.seed = value.toULongLong(&ok);
        if (!ok)
            *error = text(QStringLiteral("--seed vol un nombre enter no negatiu: %1")).arg(value);
    } else if (option == u"key-delay") {
        options.keyDelayMs = value.toInt(&ok);
        ok = ok && options.keyDelayMs >= 0 && options.keyDelayMs <= kMaxKeyDelayMs;
        if (!ok)
            *error = text(QStringLiteral("--key-delay vol els mil·lisegons entre dues tecles, "
                                         "de 0 a %1: %2"))
                         .arg(kMaxKeyDelayMs)
                         .arg(value);
    } else if (option == u"platform") {
        const std::optional<PlatformKind> kind = platformKindFromName(value);
        ok = kind.has_value();
        options.platform = kind.value_or(PlatformKind::Automatic);
        if (!ok)
            *error =
                text(QStringLiteral("--platform vol x11, wayland, portal o auto: %1")).arg(value);
    } else {
        ok = QFileInfo(value).isDir();
        options.folder = QDir(value).absolutePath();
        if (!ok)
            *error = text(QStringLiteral("No es troba la carpeta %1")).arg(value);
    }
    return ok;
}

} // namespace

std::optional<ActionOptions> parseActionOptions(const QStringList& arguments, QString* error) {
    QCommandLineParser parser;
    const QCommandLineOption dryRun(QStringLiteral("dry-run"), QString());
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QString());
    parser.addOptions({dryRun, help});
    for (const QString& name : valueOptions())
        parser.addOption(QCommandLineOption(name, QString(), name));
    if (const auto refused =
            parseCommandLine(parser, QStringList{QStringLiteral("action")} + arguments)) {
        *error = refused->text(language());
        return std::nullopt;
    }
    ActionOptions options;
    options.folder = QDir::currentPath();
    options.dryRun = parser.isSet(dryRun);
    options.help = parser.isSet(help);
    for (const QString& name : valueOptions())
        if (parser.isSet(name) && !apply(options, name, parser.value(name), error))
            return std::nullopt;
    if (options.help)
        return options;
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 1) {
        *error = positional.isEmpty()
                     ? text(QStringLiteral("Falta el text d'accions"))
                     : text(QStringLiteral("Només hi pot haver un text d'accions; poseu-lo "
                                           "entre cometes si té espais"));
        return std::nullopt;
    }
    options.text = positional.first();
    return options;
}

QString actionHelp() {
    return text(QStringLiteral(
        "Ús: mervak-cli action TEXT [opcions]\n"
        "Executa un text d'accions: escriu les tecles a la finestra de destinació i\n"
        "executa els blocs d'ordres ({|Pagina 2}, {|Espera 1}, {|Mouse M 0 0 }...).\n"
        "\n"
        "  --dry-run          no toca res: escriu cada efecte com una línia JSON\n"
        "  --target TÍTOL     la finestra que rep les tecles (títol exacte o el seu\n"
        "                     començament, sense distingir majúscules); \"|\" cap\n"
        "  --register TEXT    el registre de memòria en començar\n"
        "  --clipboard TEXT   posa el text al porta-retalls abans de començar\n"
        "  --seed N           llavor de {|Tria}, per repetir les mateixes tries\n"
        "  --folder CARPETA   la carpeta de treball (la carpeta actual si no n'hi ha)\n"
        "  --key-delay MS     pausa entre dues tecles, en mil·lisegons (0 per defecte)\n"
        "  --platform NOM     x11, wayland (sway i altres compositors wlroots), portal\n"
        "                     (GNOME, KDE) o auto, com la clau Plataforma de MERVAK.INI\n"
        "  --                 acaba les opcions: action -- \"-5\" escriu -5\n"
        "\n"
        "Sense --dry-run cal una pantalla X (DISPLAY) o un escriptori Wayland.\n"
        "Estat de sortida: 0 correcte; 1 hi ha hagut problemes (notació mal escrita,\n"
        "finestra o fitxer no trobat, sense pantalla); 2 ordre mal escrita.\n"));
}

} // namespace mervak::cli
