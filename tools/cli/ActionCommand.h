#pragma once

#include <QString>

namespace mervak::cli {

// `mervak-cli action TEXT [options]`, from main's own argc and argv (argv[1] is
// "action"). It makes its own application object: a QGuiApplication on the X
// display for real typing (the clipboard needs one), a QCoreApplication for a
// dry run. MERVAK.INI in `homeFolder` may choose the backend. Returns the exit status.
int runActionCommand(int argc, char** argv, const QString& homeFolder);

} // namespace mervak::cli
