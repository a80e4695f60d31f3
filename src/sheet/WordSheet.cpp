#include "sheet/WordSheet.h"

#include "platform/Checked16.h"
#include "template/AreaCell.h"

#include <QRegularExpression>
#include <cmath>

namespace mervak {

namespace {

constexpr double kSheetUnits = 120;
// The navigation strip's share of the sheet's height.
constexpr double kStripShare = 0.14;
constexpr uint32_t kCellBorder = 0x333333;
constexpr uint32_t kCellBackground = 0xFFFFFF;
constexpr uint32_t kStripBackground = 0xE6E6E6;
// OpenMoji's arrows for the strip: leftwards and rightwards.
const QString kPreviousSymbol = QStringLiteral("2B05");
const QString kNextSymbol = QStringLiteral("27A1");

int16_t unit(double value) {
    return static_cast<int16_t>(std::lround(value));
}

// x0..x1 from the left, y0..y1 from the top, in units; y turned upwards.
UnitBox boxFromTop(double x0, double y0, double x1, double y1) {
    return {unit(x0), unit(kSheetUnits - y1), unit(x1), unit(kSheetUnits - y0)};
}

QString sendKeysText(const QString& text) {
    static const QString special = QStringLiteral("+^%~(){}[]");
    QString escaped;
    for (const QChar c : text)
        escaped += special.contains(c) ? QStringLiteral("{%1}").arg(c) : QString(c);
    return escaped;
}

AreaCell cell(const QString& picture, const QString& label, uint32_t background) {
    AreaCell made;
    made.Picture = picture;
    made.Label = label;
    made.Background = background;
    made.Border = kCellBorder;
    return made;
}

Area areaIn(const UnitBox& box, int16_t page, const QString& actionText, const AreaCell& content) {
    Area area;
    area.X0 = box.left;
    area.Y0 = box.bottom;
    area.X1 = box.right;
    area.Y1 = box.top;
    area.Page = page;
    area.ActionText = actionText;
    area.Cell = content;
    return area;
}

void appendStrip(Template& t, const WordSheetGrid& grid, int16_t page, int16_t first, int16_t last,
                 Language language) {
    const int16_t previous = page == first ? last : sub16(page, 1);
    const int16_t next = page == last ? first : add16(page, 1);
    const QString pageCommand = QStringLiteral("{|Pagina %1}");
    t.AppendArea(
        areaIn(*grid.previous, page, pageCommand.arg(previous),
               cell(symbolReference(kPreviousSymbol),
                    TranslateCaption(language, QStringLiteral("Anterior")), kStripBackground)));
    t.AppendArea(
        areaIn(*grid.next, page, pageCommand.arg(next),
               cell(symbolReference(kNextSymbol),
                    TranslateCaption(language, QStringLiteral("Següent")), kStripBackground)));
}

} // namespace

WordSheetGrid wordSheetGrid(const WordSheetLayout& layout, QSizeF sheetMm) {
    if (layout.rows < 1 || layout.columns < 1 || sheetMm.isEmpty())
        return {};
    const double perMmX = kSheetUnits / sheetMm.width();
    const double perMmY = kSheetUnits / sheetMm.height();
    const double marginX = layout.marginMm * perMmX;
    const double marginY = layout.marginMm * perMmY;
    const double gapX = layout.gapMm * perMmX;
    const double gapY = layout.gapMm * perMmY;
    const double strip = layout.navigation ? kStripShare * kSheetUnits : 0;
    const double gridBottom = kSheetUnits - marginY - (layout.navigation ? strip + gapY : 0);
    const double cellW = (kSheetUnits - 2 * marginX - (layout.columns - 1) * gapX) / layout.columns;
    const double cellH = (gridBottom - marginY - (layout.rows - 1) * gapY) / layout.rows;
    if (cellW < 1 || cellH < 1)
        return {};
    WordSheetGrid grid;
    for (int r = 0; r < layout.rows; ++r) {
        for (int c = 0; c < layout.columns; ++c) {
            const double x = marginX + c * (cellW + gapX);
            const double y = marginY + r * (cellH + gapY);
            grid.cells.append(boxFromTop(x, y, x + cellW, y + cellH));
        }
    }
    if (layout.navigation) {
        const double top = kSheetUnits - marginY - strip;
        const double half = (kSheetUnits - 2 * marginX - gapX) / 2;
        grid.previous = boxFromTop(marginX, top, marginX + half, top + strip);
        grid.next =
            boxFromTop(kSheetUnits - marginX - half, top, kSheetUnits - marginX, top + strip);
    }
    return grid;
}

QStringList splitWordList(const QString& text) {
    static const QRegularExpression listSeparator(QStringLiteral("[,;]"));
    static const QRegularExpression phraseSeparator(QStringLiteral("[,;\\n]"));
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QStringList parts =
        text.split(text.contains(listSeparator) ? phraseSeparator : blanks, Qt::SkipEmptyParts);
    QStringList words;
    for (const QString& part : parts)
        if (const QString word = part.simplified(); !word.isEmpty())
            words.append(word);
    return words;
}

QString wordActionText(const QString& word, bool speak, Language language) {
    QString text = sendKeysText(word) + u' ';
    if (speak)
        text += QStringLiteral("{|%1 %2}")
                    .arg(language == Language::Spanish ? QStringLiteral("Leer")
                                                       : QStringLiteral("Llegir"),
                         word);
    return text;
}

int16_t appendWordSheet(Template& t, const QStringList& words, const WordSheetLayout& layout,
                        const WordPicture& pictureFor, bool speak, Language language) {
    const WordSheetGrid grid = wordSheetGrid(layout, QSizeF(t.SheetWidthMm, t.SheetHeightMm));
    if (grid.cells.isEmpty() || words.isEmpty())
        return 0;
    const auto perPage = grid.cells.size();
    const auto pages = (words.size() + perPage - 1) / perPage;
    Template made = t;
    const bool reuseFirst = made.AreaCount() == 0 && made.PageCount == 1;
    const int16_t first = reuseFirst ? int16_t{1} : add16(made.PageCount, 1);
    const int16_t last = toInt16(first + pages - 1);
    made.PageCount = last;
    for (int page = first; page <= last; ++page) {
        const auto onPage = words.mid((page - first) * perPage, perPage);
        for (qsizetype i = 0; i < onPage.size(); ++i)
            made.AppendArea(areaIn(grid.cells.at(i), static_cast<int16_t>(page),
                                   wordActionText(onPage.at(i), speak, language),
                                   cell(pictureFor ? pictureFor(onPage.at(i)) : QString(),
                                        onPage.at(i), kCellBackground)));
        if (grid.previous)
            appendStrip(made, grid, static_cast<int16_t>(page), first, last, language);
    }
    t = std::move(made);
    return first;
}

} // namespace mervak
