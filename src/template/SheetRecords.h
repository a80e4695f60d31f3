#pragma once

#include "template/FieldReader.h"
#include "template/FieldWriter.h"
#include "template/Template.h"

namespace mervak {

// What Mervak stores after the last Area record of a ".mvw", where older
// readers stop: the sheet size when it is not the tablet's, each page's
// background picture and each Area's cell. Every record opens with a quoted tag:
//   "MidaLamina"  width, height (millimetres)
//   "FonsPagina"  page, picture (quoted)
//   "Cella"       Area index, picture, label (quoted), placement (integer),
//                 background, border ("#RRGGBB" or empty, quoted)
// A Template with the tablet's size, no page pictures and no cells writes
// nothing here, so its file stays what older versions wrote.
void writeSheetRecords(FieldWriter& out, const Template& t);

// Reads those records into `t`, whose Areas are already read. Reading stops
// quietly at the first unknown tag or malformed record, as anything after the
// Areas was always ignored; values out of range are skipped.
void readSheetRecords(FieldReader& in, Template& t);

} // namespace mervak
