#pragma once

#include "template/Area.h"
#include "template/FieldReader.h"
#include "template/FieldWriter.h"

namespace mervak {

// Which fields an Area record holds. Every layout stores, in this order,
// X0 Y0 X1 Y1 [Page] [ClipFlag] Clip ActionText Flags.
struct AreaRecordLayout {
    bool page;
    bool clipFlag;
};

constexpr AreaRecordLayout kRecordWithClipFlag{true, true};     // .mvw version 1, "save as"
constexpr AreaRecordLayout kRecordWithoutClipFlag{true, false}; // .mvw version 2
constexpr AreaRecordLayout kPageModelRecord{false, true};       // .mvp: the page is the target's

// The quoted value that opens the sheet size Mervak stores after the last Area
// record of a ".mvw": then its width and its height in millimetres.
inline QString sheetSizeTag() {
    return QStringLiteral("MidaLamina");
}

// The quoted value that opens a Template's own scanning settings, stored after
// the sheet size: then one quoted line of them.
inline QString scanSettingsTag() {
    return QStringLiteral("Exploracio");
}

void writeAreaRecord(FieldWriter& out, const Area& a, AreaRecordLayout layout);

// Throws FieldError where the record is malformed.
Area readAreaRecord(FieldReader& in, AreaRecordLayout layout);

} // namespace mervak
