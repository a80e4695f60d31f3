#pragma once

#include "template/Template.h"

#include <cstdio>
#include <cstdlib>

namespace mervak {

// Stops the run, so libFuzzer keeps the input, when a property does not hold.
inline void fuzzCheck(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "property broken: %s\n", what);
        std::abort();
    }
}

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
