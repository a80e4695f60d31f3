#pragma once

#include "platform/Language.h"

#include <QImage>
#include <QSizeF>
#include <QString>

class QWidget;

namespace mervak {

class Template;

enum class PaperSize { A4, A3 };

// What a printed sheet holds; its size is the Template's.
struct SheetExportOptions {
    PaperSize paper = PaperSize::A4;
    bool allPages = false; // else the current page only
    bool outlines = true;  // the Areas' outlines with the labels of what they type
};

// Prints the sheet that lies on the tablet: the Template's sheet size at true
// size, centred on the paper (landscape when it is wider than high), one PDF
// page per Template page. The sheet units span the sheet edge to edge, and the
// picture covers it, as the editor shows it.
// Files are written atomically.
class SheetExport {
public:
    // The Template's picture, found from its folder as stored names are; a null
    // image and no error when FitxGraf is empty. When the named file cannot be
    // read: a null image and `error` set (message 110 and the path).
    static QImage loadPicture(const Template& t, Language language, QString* error);

    // True when the surface fits on the paper in one of its orientations.
    static bool fits(QSizeF surfaceMm, PaperSize paper);

    // Writes the PDF; false with `error` set, in `language`, when the sheet
    // does not fit on the paper or the file cannot be written.
    static bool exportPdf(const Template& t, const QImage& picture,
                          const SheetExportOptions& options, const QString& path, Language language,
                          QString* error);

    // The page drawn into an image of `size` pixels: the picture (white when
    // null) and, when `outlines`, the Areas' outlines without labels.
    static QImage renderPage(const Template& t, const QImage& picture, int page, QSize size,
                             bool outlines);

    // "Desar mini-làmina": the current page, outlines included, in a PNG whose
    // longer side is `longSide` pixels, shaped like the sheet.
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
