#pragma once

#include "openboard/BoardMessages.h"
#include "openboard/BoardPackage.h"
#include "sheet/PictureFiles.h"
#include "template/Template.h"

namespace mervak {

struct BoardExport {
    BoardPackage package;
    QList<BoardNote> notes; // what other programs will not see
};

// Turns a Template into boards: one per page, named `title` (and the page
// number when there are several). Areas that stand in rows and columns become
// the board's grid; others keep their places as positions, with a grid in
// reading order for programs that know only grids. Each button carries its
// Area's cell (label, or else what the Area says or types; picture; colours),
// what the Area reads aloud as its vocalization and its first page change as a
// link. The Area itself (ActionText, rectangle, fields, cell) travels in
// "ext_mervak_" fields, so that Mervak reads its own boards back whole.
BoardExport exportBoards(const Template& t, const QString& title, const PictureFiles& pictures);

} // namespace mervak
