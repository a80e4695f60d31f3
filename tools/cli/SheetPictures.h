#pragma once

#include "sheet/PictureFiles.h"
#include "template/Template.h"

namespace mervak::cli {

// Where the commands that draw sheets find a Template's pictures: its folder,
// and the symbol library's files.
PictureFiles picturesOf(const Template& t);

} // namespace mervak::cli
