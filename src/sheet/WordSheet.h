#pragma once

#include "platform/Language.h"
#include "template/Template.h"

#include <QList>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <optional>

namespace mervak {

// How a sheet made from words is laid out: millimetres of the printed sheet.
struct WordSheetLayout {
    int rows = 2;
    int columns = 3;
    double marginMm = 5;     // from each edge of the sheet
    double gapMm = 4;        // between two cells
    bool navigation = false; // a strip at the foot of each page: previous and next page
};

// A rectangle in sheet units, y upwards as the tablet reports.
struct UnitBox {
    int16_t left = 0;
    int16_t bottom = 0;
    int16_t right = 0;
    int16_t top = 0;
    friend bool operator==(const UnitBox&, const UnitBox&) = default;
};

struct WordSheetGrid {
    QList<UnitBox> cells;            // in reading order: left to right, then top to bottom
    std::optional<UnitBox> previous; // the navigation strip's two halves, when asked for
    std::optional<UnitBox> next;
};

// The cells of one page on a sheet of `sheetMm`; empty for fewer than one row or
// column, or when the margins and gaps leave no room.
WordSheetGrid wordSheetGrid(const WordSheetLayout& layout, QSizeF sheetMm);

// The words of a list as the teacher typed or pasted it: between commas, semicolons or
// line ends when there is a comma or a semicolon (so that "cara de gos" stays whole),
// else between blanks.
QStringList splitWordList(const QString& text);

// The picture a word's cell shows (a cell picture, as AreaCell stores it); empty for none.
using WordPicture = std::function<QString(const QString& word)>;

// What pressing a word's cell does: types the word and a space, then, when `speak`,
// says it ("{|Llegir ...}", "{|Leer ...}" in Spanish).
QString wordActionText(const QString& word, bool speak, Language language);

// Appends one page per screenful of words, each word in its own cell in reading order
// with its picture and its label, and the navigation strip when the layout asks for it
// (its two Areas turn the pages, going round at either end). An empty Template's first
// page is used as the first of them. Returns the first page made; throws Overflow16,
// leaving the Template as it was, when the pages or Areas would pass 32767.
int16_t appendWordSheet(Template& t, const QStringList& words, const WordSheetLayout& layout,
                        const WordPicture& pictureFor, bool speak, Language language);

} // namespace mervak
