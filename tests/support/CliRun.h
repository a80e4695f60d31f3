#pragma once

#include <QString>
#include <QStringList>

namespace mervak::test {

struct CliRun {
    int status = -1; // -1 when it crashed or never ended
    QString out;
    QString err;
    // Standard output split into lines, without the empty one after the last line end.
    QStringList lines() const;
};

// Runs a program of the build (mervak-cli, the simulator) to its end in `folder`,
// with LANG set to `lang`.
CliRun runProgram(const QString& program, const QStringList& arguments, const QString& folder = {},
                  const QString& lang = QStringLiteral("C"));

} // namespace mervak::test
