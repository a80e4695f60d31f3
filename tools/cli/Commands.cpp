#include "Commands.h"

#include "CliText.h"
#include "TemplateJson.h"
#include "platform/Checked16.h"
#include "template/PageModel.h"
#include "template/PageOperations.h"
#include "template/TemplateCheck.h"
#include "template/TemplateFile.h"

#include <QDir>
#include <QFileInfo>
#include <functional>

namespace mervak::cli {

namespace {

// The positional arguments and the options ("--name" or "--name VALUE") of a command.
struct Arguments {
    QStringList positional;
    QStringList flags;
    QString output;
};

std::optional<Arguments> splitArguments(const QStringList& arguments, CommandContext& c) {
    Arguments split;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (argument == QStringLiteral("--output")) {
            if (i + 1 == arguments.size()) {
                c.err << "Falta el nom després de --output\n";
                return std::nullopt;
            }
            split.output = arguments[++i];
        } else if (argument.startsWith(QStringLiteral("--"))) {
            split.flags.append(argument);
        } else {
            split.positional.append(argument);
        }
    }
    return split;
}

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
        c.err << "El nom de sortida ha d'acabar en .mvw o .mvd: " << path << '\n';
        return kUsage;
    }
    const bool mvd = path.toUpper().endsWith(QStringLiteral(".MVD"));
    const SaveOutcome outcome = mvd ? saveTemplateAs(t, path) : saveTemplate(t, path);
    if (outcome.error) {
        c.err << errorText(*outcome.error, path) << '\n';
        return kFailure;
    }
    for (const QString& copied : outcome.copiedFiles)
        c.out << "Copiat: " << copied << '\n';
    for (const QString& missing : outcome.missingFiles)
        c.err << Message(Language::Catalan, TemplateMessage::FileNotFound) << missing << '\n';
    for (const MvdLoss& loss : outcome.losses)
        c.err << lossText(loss) << '\n';
    return outcome.losses.isEmpty() ? kSuccess : kWithNotes;
}

std::optional<int16_t> pageNumber(const Template& t, const QString& text, CommandContext& c) {
    bool ok = false;
    const int page = text.toInt(&ok);
    if (!ok || page < 1 || page > t.PageCount) {
        c.err << "La pàgina ha de ser un número de 1 a " << t.PageCount << ": " << text << '\n';
        return std::nullopt;
    }
    return static_cast<int16_t>(page);
}

void printArea(const Template& t, int16_t i, QTextStream& out) {
    const Area& a = t.area(i);
    out << "Àrea " << i << "  pàgina " << a.Page << "  (" << a.X0 << ',' << a.Y0 << ")-(" << a.X1
        << ',' << a.Y1 << ")  ClipFlag " << a.ClipFlag << "  Flags " << a.Flags;
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
    if (a.flags.contains(QStringLiteral("--json"))) {
        c.out << QString::fromUtf8(templateJson(t));
        return kSuccess;
    }
    c.out << "Fitxer: " << t.TemplateFileName << '\n'
          << "Versió: " << t.FormatVersion << '.' << t.FormatRevision << '\n'
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
        c.out << "Cap problema.\n";
    return problems.isEmpty() ? kSuccess : kWithNotes;
}

int copy(const Arguments& a, CommandContext& c) {
    if (a.positional.size() != 2)
        return usage(QStringLiteral("copy"), c);
    if (!QFileInfo(a.positional[1]).isDir()) {
        c.err << "No és una carpeta: " << a.positional[1] << '\n';
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

// Loads FILE, moves to PAGE and runs `edit`; saves to --output or FILE when it succeeds.
int editPage(const Arguments& a, qsizetype count, const QString& command, CommandContext& c,
             const std::function<std::optional<TemplateError>(Template&)>& edit) {
    if (a.positional.size() != count)
        return usage(command, c);
    Template t;
    if (!load(a.positional[0], t, c))
        return kFailure;
    const auto page = pageNumber(t, a.positional[1], c);
    if (!page)
        return kUsage;
    t.CurrentPage = *page;
    t.refreshPageAreaCount();
    if (const auto error = edit(t)) {
        c.err << errorText(*error, error->argument) << '\n';
        return kFailure;
    }
    return save(t, a.output.isEmpty() ? a.positional[0] : a.output, c);
}

int pageSave(const Arguments& a, CommandContext& c) {
    if (a.positional.size() != 3)
        return usage(QStringLiteral("page-save"), c);
    Template t;
    if (!load(a.positional[0], t, c))
        return kFailure;
    const auto page = pageNumber(t, a.positional[1], c);
    if (!page)
        return kUsage;
    t.CurrentPage = *page;
    QDir().mkpath(c.homeFolder);
    if (const auto error = savePageModel(t, c.homeFolder, a.positional[2])) {
        c.err << errorText(*error, error->argument) << '\n';
        return kFailure;
    }
    c.out << pageModelPath(c.homeFolder, a.positional[2]) << '\n';
    return kSuccess;
}

int pageInsert(const Arguments& a, CommandContext& c) {
    const bool before = a.flags.contains(QStringLiteral("--before"));
    const bool after = a.flags.contains(QStringLiteral("--after"));
    if (before == after)
        return usage(QStringLiteral("page-insert"), c);
    const QString model = a.positional.value(2);
    return editPage(a, 3, QStringLiteral("page-insert"), c, [&](Template& t) {
        return openPageModel(t, c.homeFolder, model, placingCode(before, after), {});
    });
}

int pagePaste(const Arguments& a, CommandContext& c) {
    const QString model = a.positional.value(2);
    return editPage(a, 3, QStringLiteral("page-paste"), c,
                    [&](Template& t) { return pastePageModel(t, c.homeFolder, model); });
}

int pageDelete(const Arguments& a, CommandContext& c) {
    return editPage(a, 2, QStringLiteral("page-delete"), c,
                    [](Template& t) -> std::optional<TemplateError> {
                        deletePage(t);
                        return std::nullopt;
                    });
}

} // namespace

int runCommand(const QString& command, const QStringList& arguments, CommandContext& c) {
    using Runner = int (*)(const Arguments&, CommandContext&);
    static const QHash<QString, Runner> runners = {
        {QStringLiteral("info"), info},
        {QStringLiteral("convert"), convert},
        {QStringLiteral("check"), check},
        {QStringLiteral("copy"), copy},
        {QStringLiteral("models"), models},
        {QStringLiteral("page-save"), pageSave},
        {QStringLiteral("page-insert"), pageInsert},
        {QStringLiteral("page-paste"), pagePaste},
        {QStringLiteral("page-delete"), pageDelete},
    };
    const Runner runner = runners.value(command);
    if (!runner) {
        c.err << "Ordre desconeguda: " << command << "\n\n" << generalHelp();
        return kUsage;
    }
    if (arguments.contains(QStringLiteral("--help"))) {
        c.out << commandHelp(command);
        return kSuccess;
    }
    const auto split = splitArguments(arguments, c);
    if (!split)
        return kUsage;
    try {
        return runner(*split, c);
    } catch (const Overflow16&) {
        c.err << "La plantilla passaria de 32767 àrees o pàgines: no s'ha fet res.\n";
        return kFailure;
    }
}

} // namespace mervak::cli
