#pragma once

#include "template/Template.h"
#include "template/TemplateError.h"

#include <QByteArray>
#include <QList>
#include <optional>

namespace mervak {

// MS-DOS templates: 38-byte records.
//   header record: byte 1 = 255, byte 4 = PageCount (1..255), the rest 0
//   area record:   bytes 1-4 = X0, Y0, X1, Y1 (sheet units, 0..255; X0 never 255),
//                  byte 5 = Page (1..255), bytes 6-38 = key text
// Key text: codes of the legacy key table, one byte each, read up to a 0 byte
// that is followed by another 0 or ends the record. A 0 followed by n (1..255)
// is a page change and reads as "{|Pagina n}".
namespace Mvd {
constexpr int kRecordSize = 38;
constexpr int kKeyTextStart = 5; // 0-based offset of the key text
constexpr int kKeyTextSize = kRecordSize - kKeyTextStart;
constexpr unsigned char kHeaderMark = 255;
} // namespace Mvd

// Appends the Areas of an ".mvd" file to `t` (freshly emptied) and sets its
// PageCount. "Format incorrecte" (with the 1-based record number) when the size
// is not a whole number of records, the header record is missing or repeated, the
// page count or an Area's page is 0.
std::optional<TemplateError> readMvd(const QByteArray& bytes, Template& t);

// Something of the Template that an ".mvd" file cannot hold.
struct MvdLoss {
    enum class Kind {
        HeaderField,    // `text` names a header field that is not stored
        PageCountCut,   // more than 255 pages: 255 stored
        CoordinateCut,  // a coordinate outside 0..255 (X0 outside 0..254) was clamped
        PageOutOfRange, // the Area's page is outside 1..255: the Area is not stored
        ClipNotStored,  // ClipFlag, Clip or Flags is not stored
        KeysNotStored,  // `text` has no key code and is left out
        KeyTextCut,     // the key text is longer than a record holds: `text` is left out
    };
    Kind kind;
    int16_t area = 0; // array index; 0 for the header
    QString text;
};

struct MvdExport {
    QByteArray bytes;
    QList<MvdLoss> losses;
};

// The ".mvd" bytes of the Template and what they leave out. Reading the bytes
// back gives the same Areas whenever `losses` is empty.
MvdExport writeMvd(const Template& t);

} // namespace mervak
