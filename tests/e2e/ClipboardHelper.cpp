// A second program on the test's display that uses the real Qt clipboard:
//   set-text TEXT       owns the clipboard with TEXT, prints "ready", serves it until ended
//   set-picture FILE    the same with the picture in FILE; exits 3 when it cannot be read
//   text                prints the clipboard's text
//   formats             prints the clipboard's MIME types, one a line
#include "platform/qt/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <cstdio>

namespace {

int serve(QGuiApplication& app) {
    std::puts("ready");
    std::fflush(stdout);
    return app.exec();
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QStringList arguments = app.arguments().mid(1);
    mervak::QtClipboard clipboard;
    const QString mode = arguments.value(0);
    if (mode == QLatin1String("set-text") && arguments.size() == 2) {
        clipboard.setText(arguments[1]);
        return serve(app);
    }
    if (mode == QLatin1String("set-picture") && arguments.size() == 2) {
        return clipboard.setPictureFromFile(arguments[1]) ? serve(app) : 3;
    }
    if (mode == QLatin1String("text")) {
        std::fputs(clipboard.text().toUtf8().constData(), stdout);
        return 0;
    }
    if (mode == QLatin1String("formats")) {
        const QMimeData* data = QGuiApplication::clipboard()->mimeData();
        for (const QString& format : data != nullptr ? data->formats() : QStringList()) {
            std::puts(format.toUtf8().constData());
        }
        return 0;
    }
    std::fputs("usage: set-text TEXT | set-picture FILE | text | formats\n", stderr);
    return 2;
}
