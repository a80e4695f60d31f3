#pragma once

#include "platform/Language.h"
#include "sheet/PictureCache.h"
#include "sheet/PictureFiles.h"
#include "template/Template.h"

#include <QRectF>

class QPainter;

namespace mervak {

// How a page is drawn beyond what the Template says.
struct SheetDrawing {
    bool cornerMarks = false;              // to lay the printed sheet on the tablet
    Language language = Language::Catalan; // of the symbols' credit line
};

// Draws the printed sheet of a page: its background picture, then the cells of
// its Areas, then the credit line of the symbol library when the page uses it.
// A composed Template draws each page's own picture; any other Template draws
// FitxGraf under every page, as it always has.
class SheetPainter {
public:
    SheetPainter(const Template& t, PictureFiles files);

    // Draws page `page` over `sheet`, which spans the sheet edge to edge (its
    // 120 × 120 units, and the Template's size in millimetres).
    void paint(QPainter& painter, const QRectF& sheet, int16_t page,
               const SheetDrawing& drawing = {});

    // The background picture of `page`, found on disk; empty when none.
    QString backgroundFile(int16_t page) const;

    // True when a cell of `page` shows a library symbol.
    bool usesSymbols(int16_t page) const;

    // The label a cell shows: its own, else what its Area types or says.
    static QString cellLabel(const Area& area);

    // The Area's rectangle over `sheet`.
    static QRectF areaBox(const Area& area, const QRectF& sheet);

    // The folder a Template's relative names resolve against.
    static QString folderOf(const Template& t);

    // Marks at the corners of `sheet`, to lay the printed sheet on the tablet.
    static void paintCornerMarks(QPainter& painter, const QRectF& sheet, double dotsPerMm);

private:
    void paintCell(QPainter& painter, const Area& area, const QRectF& sheet, double dotsPerMm);
    void paintLabel(QPainter& painter, const struct CellLayout& layout);
    void paintCredit(QPainter& painter, const QRectF& sheet, double dotsPerMm, Language language);

    const Template& t_;
    PictureFiles files_;
    PictureCache pictures_;
};

// The credit line printed on sheets that use library symbols.
QString symbolCredit(Language language);

} // namespace mervak
