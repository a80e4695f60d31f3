#pragma once

#include "platform/Language.h"
#include "platform/PlatformChoice.h"

#include <QString>
#include <QStringList>
#include <optional>

class QCommandLineParser;

namespace mervak {

// Where MERVAK.INI, the undo snapshot and the page models live.
struct HomeFolderInputs {
    QString homeOption;         // the value of "--home", empty when not given
    QString mervakHomeVariable; // MERVAK_HOME, empty when unset
    QString xdgConfigHome;      // XDG_CONFIG_HOME, empty when unset
    QString userHome;           // HOME
    QString executableFolder;
};

// In order: "--home DIR" on the command line, MERVAK_HOME, the executable's folder
// when a MERVAK.INI is there (a portable install), else $XDG_CONFIG_HOME/mervak
// (~/.config/mervak when unset). The folder is not created here.
QString chooseHomeFolder(const HomeFolderInputs& inputs);

// The same choice from this process's environment and executable.
HomeFolderInputs currentHomeFolderInputs(const QString& homeOption);

// The folder of the running executable, known before any application object
// exists (the command-line tool's "action" makes its own).
QString executableFolder();

// The program's own data (MACROS.INI, sounds, the demonstration): share/mervak
// beside the executable's bin folder, as installed under /usr, /usr/local or a
// build tree, which mirrors that layout; else the executable's own folder, for a
// portable copy that keeps everything together.
QString programDataFolder(const QString& executableFolder);

// Why a command line was refused: a Catalan caption with "%1" standing for the
// argument at fault.
struct CommandLineError {
    QString caption;
    QString argument;
    QString text(Language language) const;
};

// Parses `arguments` (the program name first) with the options `parser` was
// given; the error names the unknown option, or the option whose value is missing.
std::optional<CommandLineError> parseCommandLine(QCommandLineParser& parser,
                                                 const QStringList& arguments);

// The program's command line: "--home DIR", "--locked", "--platform NAME", "--help",
// "--version" and at most
// one Template; "--" ends the options.
struct ProgramCommandLine {
    QString homeOption;
    QString templatePath; // absolute; empty when none was named
    bool help = false;
    bool version = false;
    bool locked = false; // a pupil's session: no editing, closing asks the teacher's word
    PlatformKind platform = PlatformKind::Automatic; // the backend that types
    std::optional<CommandLineError> error;
};

// `arguments` starts with the program name. A relative Template path is taken
// against `currentFolder`, so that the working folder derived from it is a real one.
ProgramCommandLine parseProgramCommandLine(const QStringList& arguments,
                                           const QString& currentFolder);

// The help of the program's command line, in Catalan (a caption of the dictionary).
QString programHelpCaption();

} // namespace mervak
