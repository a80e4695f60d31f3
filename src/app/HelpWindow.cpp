#include "app/HelpWindow.h"

#include "editor/widgets/Captions.h"

#include <QDir>
#include <QFileInfo>

namespace mervak {

QString guidePath(const QString& folder, Language language) {
    const QDir dir(folder);
    const QString spanish = dir.filePath(QStringLiteral("guia.es.md"));
    if (language == Language::Spanish && QFileInfo::exists(spanish))
        return spanish;
    return dir.filePath(QStringLiteral("guia.md"));
}

HelpWindow::HelpWindow(QWidget* parent) : QTextBrowser(parent) {
    setWindowFlag(Qt::Window);
    setOpenExternalLinks(true);
    resize(820, 700);
}

bool HelpWindow::showGuide(const QString& path, Language language) {
    if (!QFileInfo(path).isReadable())
        return false;
    setSearchPaths({QFileInfo(path).absolutePath()});
    setSource(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()),
              QTextDocument::MarkdownResource);
    setWindowCaption(this, QStringLiteral("Guia del mestre"), language);
    show();
    raise();
    activateWindow();
    return true;
}

} // namespace mervak
