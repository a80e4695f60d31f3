#include "app/Application.h"
#include "platform/HomeFolder.h"
#include "platform/Settings.h"

#include <QApplication>
#include <QDir>
#include <cstdio>

namespace {

constexpr int kWrongCommandLine = 2;

QStringList argumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

void print(std::FILE* stream, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), stream);
}

} // namespace

int main(int argc, char** argv) {
    using namespace mervak;
    // Read before the window system is reached, so that the help, the version
    // and a wrong option need no display.
    const ProgramCommandLine line =
        parseProgramCommandLine(argumentsOf(argc, argv), QDir::currentPath());
    const QString home = chooseHomeFolder(currentHomeFolderInputs(line.homeOption));
    const Language language = readSettings(PrivateProfile(settingsFilePath(home))).language;
    if (line.error) {
        print(stderr, line.error->text(language) + u'\n');
        return kWrongCommandLine;
    }
    if (line.help) {
        print(stdout, TranslateCaption(language, programHelpCaption()));
        return 0;
    }
    if (line.version) {
        print(stdout, QStringLiteral("mervak " MERVAK_VERSION "\n"));
        return 0;
    }
    // On a Wayland desktop the windows go through XWayland, where the virtual
    // tablet can keep out of the keyboard focus and be put back where it was.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    // Qt would take "--platform NAME" as its own plugin's name: it sees none of
    // Mervak's options (the parser above refuses Qt's).
    int qtArgc = 1;
    QApplication app(qtArgc, argv);
    QApplication::setApplicationName(QStringLiteral("Mervak"));
    QApplication::setApplicationVersion(QStringLiteral(MERVAK_VERSION));
    QDir().mkpath(home);
    Application mervakApp(line.templatePath.isEmpty() ? QStringList()
                                                      : QStringList{line.templatePath},
                          home, line.locked, line.platform);
    if (!mervakApp.start())
        return 1;
    return QApplication::exec();
}
