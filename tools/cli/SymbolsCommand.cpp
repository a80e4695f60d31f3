#include "SymbolsCommand.h"

#include "CliText.h"
#include "platform/HomeFolder.h"
#include "platform/Settings.h"
#include "sheet/SymbolLibrary.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace mervak::cli {

namespace {

constexpr qsizetype kDefaultLimit = 20;

} // namespace

std::optional<Language> languageOption(const QString& value) {
    if (value == u"ca")
        return Language::Catalan;
    if (value == u"es")
        return Language::Spanish;
    return std::nullopt;
}

QStringList pictureFolders(const QString& homeFolder) {
    const QString settings = settingsFilePath(homeFolder);
    if (!QFileInfo::exists(settings))
        return {};
    return readSettings(PrivateProfile(settings)).pictureFolders;
}

int runSymbolsCommand(const QStringList& arguments, CommandContext& c) {
    QCommandLineParser parser;
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QString());
    const QCommandLineOption lang(QStringLiteral("lang"), QString(), QStringLiteral("lang"));
    const QCommandLineOption limit(QStringLiteral("limit"), QString(), QStringLiteral("n"));
    parser.addOptions({help, lang, limit});
    if (const auto error =
            parseCommandLine(parser, QStringList{QStringLiteral("symbols")} + arguments)) {
        c.err << error->text(language()) << '\n';
        return kUsage;
    }
    if (parser.isSet(help)) {
        c.out << commandHelp(QStringLiteral("symbols"));
        return kSuccess;
    }
    const QStringList words = parser.positionalArguments().mid(1);
    const auto chosen = parser.isSet(lang) ? languageOption(parser.value(lang)) : language();
    bool limitOk = true;
    const qsizetype count =
        parser.isSet(limit) ? parser.value(limit).toLongLong(&limitOk) : kDefaultLimit;
    if (parser.positionalArguments().value(0) != u"search" || words.isEmpty() || !chosen ||
        !limitOk || count < 1) {
        c.err << commandHelp(QStringLiteral("symbols"));
        return kUsage;
    }
    const SymbolLibrary library(SymbolLibrary::installedFolder(), *chosen,
                                pictureFolders(c.homeFolder));
    if (const QString error = library.errorText(language()); !error.isEmpty()) {
        c.err << error << '\n';
        return kFailure;
    }
    for (const SymbolMatch& match : library.search(words.join(u' '), count))
        c.out << match.symbol->id << '\t' << match.symbol->name << '\n';
    return kSuccess;
}

} // namespace mervak::cli
