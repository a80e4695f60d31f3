#include "platform/qt/QtProgramLauncher.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace mervak {

QStringList splitCommandLine(const QString& commandLine) {
    return QProcess::splitCommand(commandLine);
}

std::optional<std::int64_t> QtProgramLauncher::start(const QString& commandLine,
                                                     const QString& workingFolder) {
    QStringList words = splitCommandLine(commandLine);
    if (words.isEmpty()) {
        return std::nullopt;
    }
    QString program = words.takeFirst();
    if (QDir::isRelativePath(program) && !workingFolder.isEmpty()) {
        const QFileInfo local(QDir(workingFolder).absoluteFilePath(program));
        if (program.contains(QLatin1Char('/')) || (local.isFile() && local.isExecutable())) {
            program = local.absoluteFilePath();
        }
    }
    qint64 pid = 0;
    if (!QProcess::startDetached(program, words, workingFolder, &pid)) {
        return std::nullopt;
    }
    return pid;
}

} // namespace mervak
