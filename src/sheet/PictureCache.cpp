#include "sheet/PictureCache.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

namespace mervak {

namespace {

bool isDrawing(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == QLatin1String("svg") || suffix == QLatin1String("svgz");
}

} // namespace

PictureCache::PictureCache() = default;
PictureCache::~PictureCache() = default;

const PictureCache::Entry& PictureCache::entry(const QString& path) {
    if (const auto it = entries_.constFind(path); it != entries_.cend())
        return it.value();
    Entry loaded;
    if (isDrawing(path)) {
        auto drawing = std::make_shared<QSvgRenderer>(path);
        if (drawing->isValid())
            loaded.drawing = std::move(drawing);
    } else {
        QImageReader reader(path);
        reader.setAutoTransform(true);
        loaded.image = reader.read();
    }
    return entries_.insert(path, loaded).value();
}

QSizeF PictureCache::size(const QString& path) {
    if (path.isEmpty())
        return {};
    const Entry& e = entry(path);
    if (e.drawing)
        return e.drawing->viewBoxF().size();
    return e.image.size();
}

void PictureCache::draw(QPainter& painter, const QString& path, const QRectF& rect) {
    if (path.isEmpty() || rect.isEmpty())
        return;
    const Entry& e = entry(path);
    if (e.drawing) {
        e.drawing->render(&painter, rect);
    } else if (!e.image.isNull()) {
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect, e.image);
        painter.restore();
    }
}

} // namespace mervak
