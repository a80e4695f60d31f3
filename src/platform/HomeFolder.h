#pragma once

#include <QString>
#include <QStringList>

namespace mervak {

// Where MERVAK.INI, the undo snapshot and the page models live.
struct HomeFolderInputs {
    QStringList arguments;      // the command line, program name excluded
    QString mervakHomeVariable; // MERVAK_HOME, empty when unset
    QString xdgConfigHome;      // XDG_CONFIG_HOME, empty when unset
    QString userHome;           // HOME
    QString executableFolder;
};

// In order: "--home DIR" on the command line, MERVAK_HOME, the executable's folder
// when a MERVAK.INI is there (a portable install), else $XDG_CONFIG_HOME/mervak
// (~/.config/mervak when unset). The folder is not created here.
QString chooseHomeFolder(const HomeFolderInputs& inputs);

// The same choice from this process's environment and command line.
HomeFolderInputs currentHomeFolderInputs(const QStringList& argumentsAfterProgram,
                                         const QString& executableFolder);

// Removes "--home DIR" from the arguments, leaving what the program reads as its own.
QStringList withoutHomeOption(const QStringList& arguments);

} // namespace mervak
