#include "platform/Autostart.h"

#include "platform/AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <algorithm>

namespace mervak {

namespace {

QString quotedArgument(const QString& argument) {
    static const QString reserved = QStringLiteral(" \t\n\"'\\><~|&;$*?#()`");
    const bool plain =
        !argument.isEmpty() && std::none_of(argument.begin(), argument.end(),
                                            [](QChar c) { return reserved.contains(c); });
    QString text = argument;
    text.replace(u'%', QStringLiteral("%%"));
    if (plain)
        return text;
    QString quoted;
    for (const QChar c : text) {
        if (c == u'"' || c == u'`' || c == u'$' || c == u'\\')
            quoted += u'\\';
        quoted += c;
    }
    // The key's value is itself an escaped string, so each backslash doubles again.
    quoted.replace(u'\\', QStringLiteral("\\\\"));
    return u'"' + quoted + u'"';
}

} // namespace

Autostart::Autostart(const QString& configFolder)
    : folder_(QDir(configFolder).filePath(QStringLiteral("autostart"))) {}

QString Autostart::currentConfigFolder() {
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString configured = environment.value(QStringLiteral("XDG_CONFIG_HOME"));
    return configured.isEmpty() ? QDir::homePath() + QStringLiteral("/.config") : configured;
}

QString Autostart::entryPath() const {
    return QDir(folder_).filePath(QStringLiteral("cat.mervak.mervak.desktop"));
}

bool Autostart::isSet() const {
    return QFileInfo(entryPath()).isFile();
}

QString Autostart::execLine(const QStringList& command) {
    QStringList arguments;
    for (const QString& argument : command)
        arguments.append(quotedArgument(argument));
    return arguments.join(u' ');
}

std::optional<QString> Autostart::set(const QStringList& command) const {
    if (!QDir().mkpath(folder_))
        return QFileInfo(folder_).absoluteFilePath();
    const QString entry = QStringLiteral("[Desktop Entry]\n"
                                         "Type=Application\n"
                                         "Name=Mervak\n"
                                         "Icon=cat.mervak.mervak\n"
                                         "Exec=%1\n"
                                         "Terminal=false\n"
                                         "X-GNOME-Autostart-enabled=true\n")
                              .arg(execLine(command));
    QString error;
    if (!writeFileAtomically(entryPath(), entry.toUtf8(), &error))
        return error;
    return std::nullopt;
}

std::optional<QString> Autostart::remove() const {
    QFile entry(entryPath());
    if (!entry.exists() || entry.remove())
        return std::nullopt;
    return entry.errorString();
}

} // namespace mervak
