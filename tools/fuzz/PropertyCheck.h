#pragma once

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

} // namespace mervak
