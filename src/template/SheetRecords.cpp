#include "template/SheetRecords.h"

#include "template/AreaRecord.h"

namespace mervak {

namespace {

QString pagePictureTag() {
    return QStringLiteral("FonsPagina");
}

QString cellTag() {
    return QStringLiteral("Cella");
}

void writeCell(FieldWriter& out, int16_t index, const AreaCell& cell) {
    out.writeQuoted(cellTag());
    out.writeInteger(index);
    out.writeQuoted(cell.Picture);
    out.writeQuoted(cell.Label);
    out.writeInteger(static_cast<int16_t>(cell.Placement));
    out.writeQuoted(colourText(cell.Background));
    out.writeQuoted(colourText(cell.Border));
}

void readSheetSize(FieldReader& in, Template& t) {
    const int16_t width = in.readInteger();
    const int16_t height = in.readInteger();
    if (width > 0 && height > 0) {
        t.SheetWidthMm = width;
        t.SheetHeightMm = height;
    }
}

void readPagePicture(FieldReader& in, Template& t) {
    const int16_t page = in.readInteger();
    const QString picture = in.readQuoted();
    if (page >= 1 && page <= t.PageCount)
        t.setPagePicture(page, picture);
}

LabelPlacement placementFrom(int16_t stored) {
    if (stored < 0 || stored > static_cast<int16_t>(LabelPlacement::None))
        return LabelPlacement::Below;
    return static_cast<LabelPlacement>(stored);
}

void readCell(FieldReader& in, Template& t) {
    const int16_t index = in.readInteger();
    AreaCell cell;
    cell.Picture = in.readQuoted();
    cell.Label = in.readQuoted();
    cell.Placement = placementFrom(in.readInteger());
    cell.Background = colourFromText(in.readQuoted());
    cell.Border = colourFromText(in.readQuoted());
    if (index >= 1 && index <= t.AreaCount())
        t.area(index).Cell = cell;
}

// False at a tag this reader does not know.
bool readRecord(FieldReader& in, Template& t) {
    const QString tag = in.readQuoted();
    if (tag == sheetSizeTag())
        readSheetSize(in, t);
    else if (tag == pagePictureTag())
        readPagePicture(in, t);
    else if (tag == cellTag())
        readCell(in, t);
    else if (tag == scanSettingsTag())
        t.Exploracio = in.readQuoted();
    else
        return false;
    return true;
}

} // namespace

void writeSheetRecords(FieldWriter& out, const Template& t) {
    if (!t.hasTabletSheetSize()) {
        out.writeQuoted(sheetSizeTag());
        out.writeInteger(t.SheetWidthMm);
        out.writeInteger(t.SheetHeightMm);
    }
    for (auto it = t.PagePictures.cbegin(); it != t.PagePictures.cend(); ++it) {
        out.writeQuoted(pagePictureTag());
        out.writeInteger(it.key());
        out.writeQuoted(it.value());
    }
    for (int i = 1; i <= t.AreaCount(); ++i)
        if (const auto& cell = t.area(i).Cell)
            writeCell(out, static_cast<int16_t>(i), *cell);
    if (!t.Exploracio.isEmpty()) {
        out.writeQuoted(scanSettingsTag());
        out.writeQuoted(t.Exploracio);
    }
}

void readSheetRecords(FieldReader& in, Template& t) {
    try {
        while (!in.atEnd() && readRecord(in, t)) {
        }
    } catch (const FieldError&) {
    }
}

} // namespace mervak
