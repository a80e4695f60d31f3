#include "app/Application.h"
#include "platform/HomeFolder.h"

#include <QApplication>
#include <QDir>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Mervak"));
    const QStringList arguments = QApplication::arguments().mid(1);
    const QString home = mervak::chooseHomeFolder(
        mervak::currentHomeFolderInputs(arguments, QApplication::applicationDirPath()));
    QDir().mkpath(home);
    mervak::Application mervakApp(mervak::withoutHomeOption(arguments), home);
    if (!mervakApp.start())
        return 1;
    return QApplication::exec();
}
