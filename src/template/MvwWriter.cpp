#include "template/MvwWriter.h"

#include "template/AreaRecord.h"

namespace mervak {

namespace {

qsizetype expectedSize(const Template& t) {
    qsizetype size = 256 + t.FitxGraf.size() + t.Ordres.size() + t.Tecles.size() +
                     t.descripcio.size() + t.FitxDoc.size() + t.FitxClip.size() +
                     t.TxFinestra.size();
    for (int i = 1; i <= t.AreaCount(); ++i)
        size += 64 + t.area(i).Clip.size() + t.area(i).ActionText.size();
    return size;
}

void writeCommonHeader(FieldWriter& out, const Template& t) {
    out.writeInteger(2);
    out.writeInteger(0);
    out.writeBare(t.FitxGraf);
    out.writeInteger(t.AreaCount());
    out.writeQuoted(t.Ordres);
    out.writeInteger(t.PlantOption);
    out.writeQuoted(t.FitxClip);
    out.writeQuoted(t.Tecles);
    out.writeQuoted(t.FitxDoc);
    out.writeQuoted(t.TxFinestra);
    out.writeQuoted(t.descripcio);
    out.writeInteger(t.PageCount);
    out.writeInteger(t.SoundActive);
}

void writeAreas(FieldWriter& out, const Template& t, AreaRecordLayout layout) {
    for (int i = 1; i <= t.AreaCount(); ++i)
        writeAreaRecord(out, t.area(i), layout);
}

// After the last record, where older readers stop: a file with the tablet's
// size stays exactly what they wrote.
void writeSheetSize(FieldWriter& out, const Template& t) {
    if (t.hasTabletSheetSize())
        return;
    out.writeQuoted(sheetSizeTag());
    out.writeInteger(t.SheetWidthMm);
    out.writeInteger(t.SheetHeightMm);
}

void writeTemplateScanning(FieldWriter& out, const Template& t) {
    if (t.Exploracio.isEmpty())
        return;
    out.writeQuoted(scanSettingsTag());
    out.writeQuoted(t.Exploracio);
}

} // namespace

QByteArray writeMvw(const Template& t) {
    FieldWriter out(expectedSize(t));
    writeCommonHeader(out, t);
    out.writeInteger(t.HeaderFlag);
    out.writeInteger(t.sv_idioma);
    out.writeInteger(t.sv_locutor);
    out.writeInteger(t.SV_velocitat);
    writeAreas(out, t, kRecordWithoutClipFlag);
    writeSheetSize(out, t);
    writeTemplateScanning(out, t);
    return out.bytes();
}

QByteArray writeMvwSaveAs(const Template& t) {
    FieldWriter out(expectedSize(t));
    writeCommonHeader(out, t);
    writeAreas(out, t, kRecordWithClipFlag);
    writeSheetSize(out, t);
    writeTemplateScanning(out, t);
    return out.bytes();
}

} // namespace mervak
