#include "Commands.h"

#include "AuditCommand.h"
#include "BoardCommands.h"
#include "CliText.h"
#include "SheetCommand.h"
#include "SheetCommands.h"
#include "SymbolsCommand.h"
#include "TemplateJson.h"
#include "platform/Checked16.h"
#include "platform/HomeFolder.h"
#include "template/PageModel.h"
#include "template/PageOperations.h"
#include "template/TemplateCheck.h"
#include "template/TemplateFile.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <functional>

namespace mervak::cli {

namespace {

// The positional arguments and the options of a command.
struct Arguments {
    QStringList positional;
    QStringList flags; // the flags given, named without their dashes
    QString output;
};

int usage(const QString& command, CommandContext& c) {
    c.err << commandHelp(command);
    return kUsage;
}

bool load(const QString& path, Template& t, CommandContext& c) {
    const OpenOutcome outcome = openTemplate(t, path);
    if (outcome.warning)
        c.err << errorText(*outcome.warning, path) << '\n';
    if (outcome.error) {
        c.err << errorText(*outcome.error, path) << '\n';
        return false;
    }
    return true;
}

bool isTemplateName(const QString& path) {
    const QString upper = path.toUpper();
    return upper.endsWith(QStringLiteral(".MVW")) || upper.endsWith(QStringLiteral(".MVD"));
}

// Saves as version 2, or exports when the name ends in ".mvd".
int save(Template& t, const QString& path, CommandContext& c) {
    if (!isTemplateName(path)) {
        c.err << text(QStringLiteral("El nom de sortida ha d'acabar en .mvw o .mvd: ")) << path
              << '\n';
        return kUsage;
    }
    const bool mvd = path.toUpper().endsWith(QStringLiteral(".MVD"));
    const SaveOutcome outcome = mvd ? saveTemplateAs(t, path) : saveTemplate(t, path);
    if (outcome.error) {
        c.err << errorText(*outcome.error, path) << '\n';
        return kFailure;
    }
    for (const QString& copied : outcome.copiedFiles)
        c.out << text(QStringLiteral("Copiat: ")) << copied << '\n';
    for (const QString& missing : outcome.missingFiles)
        c.err << Message(language(), TemplateMessage::FileNotFound) << missing << '\n';
    for (const MvdLoss& loss : outcome.losses)
        c.err << lossText(loss) << '\n';
    return outcome.losses.isEmpty() ? kSuccess : kWithNotes;
}

std::optional<int16_t> pageNumber(const Template& t, const QString& text, CommandContext& c) {
    bool ok = false;
    const int page = text.toInt(&ok);
    if (!ok || page < 1 || page > t.PageCount) {
        c.err << cli::text(QStringLiteral("La pàgina ha de ser un número de 1 a %1: %2"))
                     .arg(t.PageCount)
                     .arg(text)
              << '\n';
        return std::nullopt;
    }
    return static_cast<int16_t>(page);
}

void printArea(const Template& t, int16_t i, QTextStream& out) {
    const Area& a = t.area(i);
    out << text(QStringLiteral("Àrea ")) << i << text(QStringLiteral("  pàgina ")) << a.Page
        << "  (" << a.X0 << ',' << a.Y0 << ")-(" << a.X1 << ',' << a.Y1 << ")  ClipFlag "
        << a.ClipFlag << "  Flags " << a.Flags;
    if (!a.Clip.isEmpty())
        out << "  Clip \"" << a.Clip << '"';
    out << "\n    \"" << a.ActionText << "\"\n";
}

int info(const Arguments& a, CommandContext& c) {
    if (a.positional.size() != 1)
        return usage(QStringLiteral("info"), c);
    Template t;
    if (!load(a.positional[0], t, c))
        return kFailure;
    if (a.flags.contains(QStringLiteral("json"))) {
        c.out << QString::fromUtf8(templateJson(t));
        return kSuccess;
    }
    c.out << text(QStringLiteral("Fitxer: ")) << t.TemplateFileName << '\n'
          << text(QStringLiteral("Versió: ")) << t.FormatVersion << '.' << t.FormatRevision << '\n'
          << "FitxGraf: " << t.FitxGraf << '\n'
          << "PageCount: " << t.PageCount << "  AreaCount: " << t.AreaCount() << '\n'
          << "Ordres: \"" << t.Ordres << "\"  PlantOption: " << t.PlantOption << '\n'
          << "FitxClip: \"" << t.FitxClip << "\"  Tecles: \"" << t.Tecles << "\"\n"
          << "FitxDoc: \"" << t.FitxDoc << "\"  TxFinestra: \"" << t.TxFinestra << "\"\n"
          << "descripcio: \"" << t.descripcio << "\"\n"
          << "SoundActive: " << t.SoundActive << "  HeaderFlag: " << t.HeaderFlag
          << "  sv_idioma: " << t.sv_idioma << "  sv_locutor: " << t.sv_locutor
          << "  SV_velocitat: " << t.SV_velocitat << '\n';
    for (int i = 1; i <= t.AreaCount(); ++i)
        printArea(t, i, c.out);
    return kSuccess;
}

int convert(const Arguments& a, CommandContext& c) {
    if (a.positional.size() != 2)
        return usage(QStringLiteral("convert"), c);
    Template t;
    if (!load(a.positional[0], t, c))
        return kFailure;
    return save(t, a.positional[1], c);
}

int check(const Arguments& a, CommandContext& c) {
    if (a.positional.size() != 1)
        return usage(QStringLiteral("check"), c);
    Template t;
    if (!load(a.positional[0], t, c))
        return kFailure;
    const auto problems = checkTemplate(t, QFileInfo(t.TemplateFileName).absolutePath());
    for (const TemplateProblem& problem : problems)
        c.out << problemText(problem, t.PageCount) << '\n';
    if (problems.isEmpty())
        c.out << text(QStringLiteral("Cap problema.")) << '\n';
    return problems.isEmpty() ? kSuccess : kWithNotes;
}

int copy(const Arguments& a, CommandContext& c) {
    if (a.positional.size() != 2)
        return usage(QStringLiteral("copy"), c);
    if (!QFileInfo(a.positional[1]).isDir()) {
        c.err << text(QStringLiteral("No és una carpeta: ")) << a.positional[1] << '\n';
        return kFailure;
    }
    Template t;
    if (!load(a.positional[0], t, c))
        return kFailure;
    const QString name = QFileInfo(t.TemplateFileName).completeBaseName() + QStringLiteral(".mvw");
    return save(t, QDir(a.positional[1]).filePath(name), c);
}

int models(const Arguments& a, CommandContext& c) {
    if (!a.positional.isEmpty())
        return usage(QStringLiteral("models"), c);
    for (const QString& model : listPageModels(c.homeFolder))
        c.out << model << '\n';
    return kSuccess;
}

// The exit status of a page operation: a file that did not read fails.
int reported(const std::optional<TemplateError>& error, CommandContext& c) {
    if (!error)
        return kSuccess;
    c.err << errorText(*error, error->argument) << '\n';
    return kFailure;
}

// FILE read and moved to PAGE, or the status that ends the command.
struct PageOfFile {
    Template t;
    int status = kSuccess;
};

PageOfFile loadPage(const Arguments& a, qsizetype count, const QString& command,
                    CommandContext& c) {
    PageOfFile loaded;
    if (a.positional.size() != count)
        loaded.status = usage(command, c);
    else if (!load(a.positional[0], loaded.t, c))
        loaded.status = kFailure;
    else if (const auto page = pageNumber(loaded.t, a.positional[1], c))
        loaded.t.CurrentPage = *page;
    else
        loaded.status = kUsage;
    return loaded;
}

// Loads FILE, moves to PAGE and runs `edit`; saves to --output or FILE when it
// returns kSuccess, else returns its status with the file untouched.
int editPage(const Arguments& a, qsizetype count, const QString& command, CommandContext& c,
             const std::function<int(Template&)>& edit) {
    PageOfFile loaded = loadPage(a, count, command, c);
    if (loaded.status != kSuccess)
        return loaded.status;
    Template& t = loaded.t;
    t.refreshPageAreaCount();
    if (const int status = edit(t); status != kSuccess)
        return status;
    return save(t, a.output.isEmpty() ? a.positional[0] : a.output, c);
}

int pageSave(const Arguments& a, CommandContext& c) {
    PageOfFile loaded = loadPage(a, 3, QStringLiteral("page-save"), c);
    if (loaded.status != kSuccess)
        return loaded.status;
    const Template& t = loaded.t;
    QDir().mkpath(c.homeFolder);
    if (const auto error = savePageModel(t, c.homeFolder, a.positional[2])) {
        c.err << errorText(*error, error->argument) << '\n';
        return kFailure;
    }
    c.out << pageModelPath(c.homeFolder, a.positional[2]) << '\n';
    return kSuccess;
}

int pageInsert(const Arguments& a, CommandContext& c) {
    const bool before = a.flags.contains(QStringLiteral("before"));
    const bool after = a.flags.contains(QStringLiteral("after"));
    if (before == after)
        return usage(QStringLiteral("page-insert"), c);
    const QString model = a.positional.value(2);
    return editPage(a, 3, QStringLiteral("page-insert"), c, [&](Template& t) {
        return reported(openPageModel(t, c.homeFolder, model, placingCode(before, after), {}), c);
    });
}

int pagePaste(const Arguments& a, CommandContext& c) {
    const QString model = a.positional.value(2);
    return editPage(a, 3, QStringLiteral("page-paste"), c, [&](Template& t) {
        return reported(pastePageModel(t, c.homeFolder, model), c);
    });
}

// A Template keeps at least one page, as in the editor.
int pageDelete(const Arguments& a, CommandContext& c) {
    return editPage(a, 2, QStringLiteral("page-delete"), c, [&c](Template& t) {
        if (!hasOtherPages(t)) {
            c.err << text(QStringLiteral("La plantilla només té una pàgina i no es pot "
                                         "eliminar: no s'ha fet res."))
                  << '\n';
            return kUsage;
        }
        deletePage(t);
        return kSuccess;
    });
}

} // namespace

int runCommand(const QString& command, const QStringList& arguments, CommandContext& c) {
    using Runner = int (*)(const Arguments&, CommandContext&);
    struct Command {
        Runner runner;
        QStringList flags;
        bool output = false; // takes --output SORTIDA
    };
    static const QHash<QString, Command> commands = {
        {QStringLiteral("info"), {info, {QStringLiteral("json")}}},
        {QStringLiteral("convert"), {convert, {}}},
        {QStringLiteral("check"), {check, {}}},
        {QStringLiteral("copy"), {copy, {}}},
        {QStringLiteral("models"), {models, {}}},
        {QStringLiteral("page-save"), {pageSave, {}}},
        {QStringLiteral("page-insert"),
         {pageInsert, {QStringLiteral("before"), QStringLiteral("after")}, true}},
        {QStringLiteral("page-paste"), {pagePaste, {}, true}},
        {QStringLiteral("page-delete"), {pageDelete, {}, true}},
        {QStringLiteral("audit"),
         {[](const Arguments& a, CommandContext& c) {
              return runAudit(a.positional, a.flags.contains(QStringLiteral("json")), c);
          },
          {QStringLiteral("json")}}},
    };
    // Commands with options of their own read their arguments themselves.
    using OwnRunner = int (*)(const QStringList&, CommandContext&);
    static const QHash<QString, OwnRunner> ownParsers = {
        {QStringLiteral("render"), runRender},
        {QStringLiteral("cell"), runCell},
        {QStringLiteral("symbols"), runSymbolsCommand},
        {QStringLiteral("sheet"), runSheetCommand},
        {QStringLiteral("import"), runImportCommand},
        {QStringLiteral("export"), runExportCommand},
    };
    if (const auto own = ownParsers.constFind(command); own != ownParsers.cend())
        return own.value()(arguments, c);
    const auto found = commands.constFind(command);
    if (found == commands.cend()) {
        c.err << text(QStringLiteral("Ordre desconeguda: ")) << command << "\n\n" << generalHelp();
        return kUsage;
    }
    QCommandLineParser parser;
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QString());
    const QCommandLineOption output(QStringLiteral("output"), QString(), QStringLiteral("file"));
    parser.addOption(help);
    if (found->output)
        parser.addOption(output);
    for (const QString& flag : found->flags)
        parser.addOption(QCommandLineOption(flag, QString()));
    if (const auto error = parseCommandLine(parser, QStringList{command} + arguments)) {
        c.err << error->text(language()) << '\n';
        return kUsage;
    }
    if (parser.isSet(help)) {
        c.out << commandHelp(command);
        return kSuccess;
    }
    Arguments split{
        parser.positionalArguments(), {}, found->output ? parser.value(output) : QString()};
    for (const QString& flag : found->flags)
        if (parser.isSet(flag))
            split.flags.append(flag);
    try {
        return found->runner(split, c);
    } catch (const Overflow16&) {
        c.err << text(QStringLiteral("La plantilla passaria de 32767 àrees o pàgines: no s'ha "
                                     "fet res."))
              << '\n';
        return kFailure;
    }
}

} // namespace mervak::cli
