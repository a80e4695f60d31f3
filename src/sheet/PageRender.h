#pragma once

#include "sheet/SheetPainter.h"

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QSize>

namespace mervak {

// The sheet's size in pixels at `dpi` dots per inch.
QSize sheetPixels(const Template& t, double dpi);

// A page as it prints, filling an image of `size` pixels.
QImage renderPageImage(const Template& t, int16_t page, QSize size, const PictureFiles& files,
                       const SheetDrawing& drawing = {});

// The pages as a PDF whose pages have the sheet's size in millimetres, with
// corner marks: labels stay text and SVG symbols stay drawings. Empty when the
// PDF could not be made.
QByteArray renderPagesPdf(const Template& t, const QList<int16_t>& pages, const PictureFiles& files,
                          Language language);

// A small picture of a page, its longer side `longSide` pixels.
QImage renderThumbnail(const Template& t, int16_t page, const PictureFiles& files,
                       int longSide = 240);

// PNG bytes of an image; empty when it could not be encoded.
QByteArray pngBytes(const QImage& image);

} // namespace mervak
