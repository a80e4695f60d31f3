#pragma once

#include "platform/Language.h"
#include "sheet/PictureFiles.h"

#include <QImage>
#include <QSizeF>
#include <QString>

class QWidget;

namespace mervak {

class Template;

// Sheet: a page exactly the sheet's size, to print at 100 % on any larger paper.
enum class PaperSize { A4, A3, Sheet };

// What a printed sheet holds; its size is the Template's.
struct SheetExportOptions {
    PaperSize paper = PaperSize::A4;
    bool allPages = false;    // else the current page only
    bool outlines = true;     // the outlines of Areas without a cell, with what they type
    SymbolFileLookup symbols; // where the library symbols of composed pages are
};

// Prints the sheet that lies on the tablet: the Template's sheet size at true
// size, centred on the paper (landscape when it is wider than high), one PDF
// page per Template page. The sheet units span the sheet edge to edge, and the
// picture covers it, as the editor shows it; a composed Template prints each
// page's own picture and its cells. Corner marks show where to lay it on the
// tablet. Files are written atomically.
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
    // null) or the composed page, and, when `outlines`, the outlines of the
    // Areas without a cell, without labels.
    static QImage renderPage(const Template& t, const QImage& picture, int page, QSize size,
                             bool outlines, const SymbolFileLookup& symbols = {});

    // "Desar mini-làmina": the current page, outlines included, in a PNG whose
    // longer side is `longSide` pixels, shaped like the sheet.
    static bool saveThumbnail(const Template& t, const QImage& picture, const QString& path,
                              Language language, QString* error, int longSide = 240,
                              const SymbolFileLookup& symbols = {});

    // The current page as a PNG of the sheet at `dpi` dots per inch.
    static bool savePng(const Template& t, const QImage& picture, const QString& path,
                        const SheetExportOptions& options, Language language, QString* error,
                        double dpi = 300);

    // "Imprimir...": the system's print dialog, then the pages at true size,
    // centred; when the paper's printable part is smaller than the sheet the
    // teacher is warned that it would print reduced, and may stop.
    static bool printWithDialog(QWidget* parent, const Template& t, Language language,
                                const SheetExportOptions& options);

    // The menu commands: ask for the options (starting from `*options`, which
    // receives the choice for next time) and the file name, then write and
    // report failures in a message box. False when cancelled or failed.
    static bool exportWithDialog(QWidget* parent, const Template& t, Language language,
                                 SheetExportOptions* options);
    static bool saveThumbnailWithDialog(QWidget* parent, const Template& t, Language language,
                                        const SymbolFileLookup& symbols = {});
};

} // namespace mervak
