#include "SheetCommand.h"

#include "CliText.h"
#include "SymbolsCommand.h"
#include "platform/HomeFolder.h"
#include "sheet/Composition.h"
#include "sheet/SymbolLibrary.h"
#include "sheet/WordSheet.h"
#include "template/TemplateFile.h"

#include <QCommandLineParser>

namespace mervak::cli {

namespace {

// A count of rows or columns: 1..20.
std::optional<int> gridCount(const QString& text) {
    bool ok = false;
    const int count = text.toInt(&ok);
    return ok && count >= 1 && count <= 20 ? std::optional<int>(count) : std::nullopt;
}

struct SheetRequest {
    QStringList words;
    WordSheetLayout layout;
    Language language = Language::Catalan;
    QString output;
};

std::optional<SheetRequest> parseRequest(const QCommandLineParser& parser) {
    const auto rows = gridCount(parser.value(QStringLiteral("rows")));
    const auto columns = gridCount(parser.value(QStringLiteral("columns")));
    const auto chosen = parser.isSet(QStringLiteral("lang"))
                            ? languageOption(parser.value(QStringLiteral("lang")))
                            : language();
    SheetRequest request;
    request.words = splitWordList(parser.value(QStringLiteral("words")));
    request.output = parser.value(QStringLiteral("o"));
    if (!rows || !columns || !chosen || request.words.isEmpty() ||
        !request.output.endsWith(QStringLiteral(".mvw"), Qt::CaseInsensitive) ||
        !parser.positionalArguments().isEmpty())
        return std::nullopt;
    request.layout.rows = *rows;
    request.layout.columns = *columns;
    request.layout.navigation = parser.isSet(QStringLiteral("nav"));
    request.language = *chosen;
    return request;
}

} // namespace

int runSheetCommand(const QStringList& arguments, CommandContext& c) {
    QCommandLineParser parser;
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QString());
    parser.addOption(help);
    for (const char* name : {"words", "rows", "columns", "lang"})
        parser.addOption(
            QCommandLineOption(QString::fromLatin1(name), QString(), QStringLiteral("v")));
    parser.addOption(QCommandLineOption({QStringLiteral("o"), QStringLiteral("output")}, QString(),
                                        QStringLiteral("file")));
    parser.addOption(QCommandLineOption(QStringLiteral("nav"), QString()));
    if (const auto error =
            parseCommandLine(parser, QStringList{QStringLiteral("sheet")} + arguments)) {
        c.err << error->text(language()) << '\n';
        return kUsage;
    }
    if (parser.isSet(help)) {
        c.out << commandHelp(QStringLiteral("sheet"));
        return kSuccess;
    }
    const auto request = parseRequest(parser);
    if (!request) {
        c.err << commandHelp(QStringLiteral("sheet"));
        return kUsage;
    }
    const SymbolLibrary library(SymbolLibrary::installedFolder(), request->language,
                                pictureFolders(c.homeFolder));
    if (const QString error = library.errorText(language()); !error.isEmpty()) {
        c.err << error << '\n';
        return kFailure;
    }
    QStringList unmatched;
    const auto pictureFor = [&](const QString& word) {
        const Symbol* best = library.bestFor(word);
        if (!best)
            unmatched.append(word);
        return best ? SymbolLibrary::cellPicture(*best) : QString();
    };
    Template t;
    t.SoundActive = -1;
    appendWordSheet(t, request->words, request->layout, pictureFor, true, request->language);
    const SaveOutcome saved = saveWithPageImages(t, request->output, false, library.fileLookup());
    if (saved.error) {
        c.err << errorText(*saved.error, request->output) << '\n';
        return kFailure;
    }
    for (const QString& word : unmatched)
        c.err
            << text(QStringLiteral("Cap símbol per a «%1»: la cel·la només té el text.")).arg(word)
            << '\n';
    return unmatched.isEmpty() ? kSuccess : kWithNotes;
}

} // namespace mervak::cli
