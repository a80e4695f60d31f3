#include "action/GuardedCommand.h"

#include "action/CommandBlock.h"
#include "action/CommandFiles.h"

#include <QStringList>

namespace mervak {

namespace {

using Kind = GuardedCommand::Kind;

bool isOneOf(const QString& keyword, std::initializer_list<const char*> names) {
    for (const char* name : names)
        if (keyword == QLatin1String(name))
            return true;
    return false;
}

// The file a SONA, ENGANXA or LLEGEIX block reads; empty when it reads none.
QString fileRead(const QString& keyword, const QString& argument, const QString& workingFolder) {
    if (isOneOf(keyword, {"SONA", "SUENA"})) {
        if (!argument.endsWith(QLatin1String(".WAV")) && !argument.endsWith(QLatin1String(".MID")))
            return {};
        return CommandFiles::resolve(argument, workingFolder);
    }
    if (isOneOf(keyword, {"ENGANXA", "ENGANCHA"})) {
        static const QStringList kRead = {QStringLiteral("WMF"), QStringLiteral("BMP"),
                                          QStringLiteral("GIF"), QStringLiteral("JPG"),
                                          QStringLiteral("TXT")};
        if (!kRead.contains(argument.right(3).toUpper()))
            return {};
        return CommandFiles::resolve(argument, workingFolder);
    }
    if (isOneOf(keyword, {"LLEGEIX", "LEE"})) {
        const QString marker = QStringLiteral("/F:");
        const qsizetype at = argument.indexOf(marker, 0, Qt::CaseInsensitive);
        if (at < 0)
            return {};
        return CommandFiles::resolve(argument.mid(at + marker.size()), workingFolder);
    }
    return {};
}

} // namespace

std::optional<GuardedCommand> GuardedCommand::of(const QString& keyword, const QString& argument,
                                                 const QString& workingFolder) {
    if (argument.isEmpty())
        return std::nullopt;
    if (keyword == u"EXECUTA")
        return GuardedCommand{Kind::StartProgram, keyword, argument};
    if (keyword == u"REG") {
        const auto parts = CommandBlock::registryArgument(argument);
        if (!parts)
            return std::nullopt;
        return GuardedCommand{Kind::WriteSettings, keyword,
                              parts->root + u'\\' + parts->subkey + u'\\' + parts->name};
    }
    if (isOneOf(keyword, {"CARREGA", "CARGA"})) {
        const QString found = CommandFiles::findTemplate(argument, workingFolder);
        if (found.isEmpty())
            return std::nullopt;
        return GuardedCommand{Kind::OpenTemplate, keyword, found};
    }
    const QString file = fileRead(keyword, argument, workingFolder);
    if (file.isEmpty())
        return std::nullopt;
    return GuardedCommand{Kind::ReadFile, keyword, file};
}

} // namespace mervak
