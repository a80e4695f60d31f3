#pragma once

#include "platform/Language.h"

#include <QImage>
#include <QSizeF>
#include <QString>

class QWidget;

namespace mervak {

class Template;

enum class PaperSize { A4, A3 };

// What a printed sheet holds and how large it is.
struct SheetExportOptions {
    // The active surface of the EASY tablet in millimetres, which the 120 x 120
    // sheet units span edge to edge (one unit is 2.25 mm across, 1.58 mm down).
    static constexpr double kEasyWidthMm = 270.0;
    static constexpr double kEasyHeightMm = 190.0;

    QSizeF surfaceMm{kEasyWidthMm, kEasyHeightMm};
    PaperSize paper = PaperSize::A4;
    bool allPages = false; // else the current page only
    bool outlines = true;  // the Areas' outlines with the labels of what they type
};

// Prints the sheet that lies on the tablet. The picture is stretched over the
// whole surface, as the sheet units span it, and the surface is centred on the
// paper at true size (landscape when it is wider than high), one PDF page per
// Template page. Files are written atomically.
class SheetExport {
public:
    // The Template's picture, found from its folder as stored names are; a null
    // image and no error when FitxGraf is empty. When the named file cannot be
    // read: a null image and `error` set (message 110 and the path).
    static QImage loadPicture(const Template& t, Language language, QString* error);

    // True when the surface fits on the paper in one of its orientations.
    static bool fits(QSizeF surfaceMm, PaperSize paper);

    // Writes the PDF; false with `error` set, in `language`, when the surface
    // does not fit on the paper or the file cannot be written.
    static bool exportPdf(const Template& t, const QImage& picture,
                          const SheetExportOptions& options, const QString& path, Language language,
                          QString* error);

    // The page drawn into an image of `size` pixels: the picture (white when
    // null) and, when `outlines`, the Areas' outlines without labels.
    static QImage renderPage(const Template& t, const QImage& picture, int page, QSize size,
                             bool outlines);

    // "Desar mini-làmina": the current page, outlines included, in a PNG whose
    // longer side is `longSide` pixels, shaped like the picture (like the
    // surface when there is none).
    static bool saveThumbnail(const Template& t, const QImage& picture, const QString& path,
                              Language language, QString* error, int longSide = 240);

    // The menu commands: ask for the options (starting from `*options`, which
    // receives the choice for next time) and the file name, then write and
    // report failures in a message box. False when cancelled or failed.
    static bool exportWithDialog(QWidget* parent, const Template& t, Language language,
                                 SheetExportOptions* options);
    static bool saveThumbnailWithDialog(QWidget* parent, const Template& t, Language language);
};

} // namespace mervak
