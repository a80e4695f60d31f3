#include "support/CliRun.h"

#include <QProcess>
#include <QProcessEnvironment>

namespace mervak::test {

namespace {
constexpr int kGiveUpMs = 30000;
} // namespace

QStringList CliRun::lines() const {
    QStringList result = out.split(u'\n');
    if (!result.isEmpty() && result.last().isEmpty())
        result.removeLast();
    return result;
}

CliRun runProgram(const QString& program, const QStringList& arguments, const QString& folder,
                  const QString& lang) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LANG"), lang);
    process.setProcessEnvironment(environment);
    if (!folder.isEmpty())
        process.setWorkingDirectory(folder);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(kGiveUpMs);
    const bool normal = ended && process.exitStatus() == QProcess::NormalExit;
    return {normal ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace mervak::test
