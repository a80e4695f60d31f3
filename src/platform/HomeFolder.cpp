#include "platform/HomeFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QProcessEnvironment>

namespace mervak {

namespace {

const QString kHomeOption = QStringLiteral("--home");

QString homeOptionValue(const QStringList& arguments) {
    for (qsizetype i = 0; i + 1 < arguments.size(); ++i)
        if (arguments[i] == kHomeOption)
            return arguments[i + 1];
    for (const QString& argument : arguments)
        if (argument.startsWith(kHomeOption + u'='))
            return argument.mid(kHomeOption.size() + 1);
    return {};
}

} // namespace

QString chooseHomeFolder(const HomeFolderInputs& inputs) {
    if (const QString option = homeOptionValue(inputs.arguments); !option.isEmpty())
        return QDir::cleanPath(QDir(option).absolutePath());
    if (!inputs.mervakHomeVariable.isEmpty())
        return QDir::cleanPath(QDir(inputs.mervakHomeVariable).absolutePath());
    if (QFileInfo::exists(QDir(inputs.executableFolder).filePath(QStringLiteral("MERVAK.INI"))))
        return QDir::cleanPath(inputs.executableFolder);
    const QString config = inputs.xdgConfigHome.isEmpty()
                               ? QDir(inputs.userHome).filePath(QStringLiteral(".config"))
                               : inputs.xdgConfigHome;
    return QDir::cleanPath(QDir(config).filePath(QStringLiteral("mervak")));
}

HomeFolderInputs currentHomeFolderInputs(const QStringList& argumentsAfterProgram,
                                         const QString& executableFolder) {
    const auto environment = QProcessEnvironment::systemEnvironment();
    return {argumentsAfterProgram, environment.value(QStringLiteral("MERVAK_HOME")),
            environment.value(QStringLiteral("XDG_CONFIG_HOME")), QDir::homePath(),
            executableFolder};
}

QStringList withoutHomeOption(const QStringList& arguments) {
    QStringList rest;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == kHomeOption) {
            ++i;
            continue;
        }
        if (!arguments[i].startsWith(kHomeOption + u'='))
            rest.append(arguments[i]);
    }
    return rest;
}

} // namespace mervak
