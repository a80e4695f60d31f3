#include "sheet/Composition.h"

#include "platform/AtomicFile.h"
#include "sheet/PageRender.h"

#include <QDir>
#include <QFileInfo>

namespace mervak {

QString pageImageName(const QString& templatePath, int16_t page) {
    return QFileInfo(templatePath).completeBaseName() + QStringLiteral("-lamina") +
           QString::number(page) + QStringLiteral(".png");
}

namespace {

std::optional<TemplateError> writePageImages(const Template& t, const PictureFiles& files) {
    const QDir folder = QFileInfo(t.TemplateFileName).absoluteDir();
    const QSize size = sheetPixels(t, kPageImageDpi);
    for (int16_t page = 1; page <= t.PageCount; ++page) {
        const QString path = folder.filePath(pageImageName(t.TemplateFileName, page));
        QString why = QStringLiteral("PNG");
        const QByteArray png = pngBytes(renderPageImage(t, page, size, files));
        if (png.isEmpty() || !writeFileAtomically(path, png, &why))
            return TemplateError{TemplateMessage::GeneralError, u' ' + path, 0, why};
    }
    return std::nullopt;
}

} // namespace

SaveOutcome saveWithPageImages(Template& t, const QString& path, bool saveAs,
                               const SymbolFileLookup& symbols) {
    const auto save = saveAs ? saveTemplateAs : saveTemplate;
    SaveOutcome outcome = save(t, path);
    const bool mvw = t.TemplateFileName.endsWith(QLatin1String(".mvw"), Qt::CaseInsensitive);
    if (outcome.error || !mvw || !t.isComposed())
        return outcome;
    const PictureFiles files{QFileInfo(t.TemplateFileName).absolutePath(), symbols};
    if ((outcome.error = writePageImages(t, files)))
        return outcome;
    const QString firstPage = pageImageName(t.TemplateFileName, 1);
    if (t.FitxGraf == firstPage)
        return outcome;
    t.FitxGraf = firstPage;
    const SaveOutcome again = save(t, t.TemplateFileName);
    outcome.error = again.error;
    return outcome;
}

} // namespace mervak
