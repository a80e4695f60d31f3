#include "template/AreaRecord.h"

namespace mervak {

void writeAreaRecord(FieldWriter& out, const Area& a, AreaRecordLayout layout) {
    out.writeInteger(a.X0);
    out.writeInteger(a.Y0);
    out.writeInteger(a.X1);
    out.writeInteger(a.Y1);
    if (layout.page)
        out.writeInteger(a.Page);
    if (layout.clipFlag)
        out.writeInteger(a.ClipFlag);
    out.writeQuoted(a.Clip);
    out.writeQuoted(a.ActionText);
    out.writeInteger(a.Flags);
}

Area readAreaRecord(FieldReader& in, AreaRecordLayout layout) {
    Area a;
    a.X0 = in.readInteger();
    a.Y0 = in.readInteger();
    a.X1 = in.readInteger();
    a.Y1 = in.readInteger();
    if (layout.page)
        a.Page = in.readInteger();
    if (layout.clipFlag)
        a.ClipFlag = in.readInteger();
    a.Clip = in.readQuoted();
    a.ActionText = in.readQuoted();
    a.Flags = in.readInteger();
    return a;
}

} // namespace mervak
