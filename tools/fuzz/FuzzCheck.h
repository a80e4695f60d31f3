#pragma once

#include "PropertyCheck.h"
#include "template/Template.h"

namespace mervak {

enum class ClipFlagStored { Yes, No };

// Equal Areas; the version 2 layout has no ClipFlag line, so it may be left out.
inline bool sameAreas(const Template& a, const Template& b,
                      ClipFlagStored clipFlag = ClipFlagStored::Yes) {
    if (a.AreaCount() != b.AreaCount())
        return false;
    for (int i = 1; i <= a.AreaCount(); ++i) {
        Area left = a.area(i);
        if (clipFlag == ClipFlagStored::No)
            left.ClipFlag = b.area(i).ClipFlag;
        if (!(left == b.area(i)))
            return false;
    }
    return true;
}

} // namespace mervak
