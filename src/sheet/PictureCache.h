#pragma once

#include <QHash>
#include <QImage>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <memory>

class QPainter;
class QSvgRenderer;

namespace mervak {

// Pictures read once per drawing of a sheet: SVG files stay drawings, so they
// reach a PDF as vectors and stay sharp at any size; other files are images.
class PictureCache {
public:
    PictureCache();
    ~PictureCache();
    PictureCache(const PictureCache&) = delete;
    PictureCache& operator=(const PictureCache&) = delete;

    // The picture's own size; empty when the file does not read as a picture.
    QSizeF size(const QString& path);

    // Draws the picture into `rect`, stretched to it.
    void draw(QPainter& painter, const QString& path, const QRectF& rect);

private:
    struct Entry {
        std::shared_ptr<QSvgRenderer> drawing;
        QImage image;
    };
    const Entry& entry(const QString& path);

    QHash<QString, Entry> entries_;
};

} // namespace mervak
