#pragma once

#include "openboard/BoardMessages.h"
#include "openboard/BoardPackage.h"
#include "template/Template.h"

#include <variant>

namespace mervak {

// A picture the imported Template names, to be written into its picture folder.
struct ImportedPicture {
    QString fileName; // inside the picture folder
    QByteArray bytes;
};

struct BoardImport {
    Template tmpl; // untitled; Areas page by page
    QList<ImportedPicture> pictures;
    QList<BoardNote> notes; // what did not come across
};

// Turns the boards into a Template: each board a page in package order; its
// grid's buttons Areas in reading order, each sized to its grid cell, empty
// slots leaving none (a board whose every button has a position is laid out by
// those); a button's label, picture and colours its Area's cell; what it says
// (its vocalization, else its label) typed and read aloud; a link to another
// board of the package a change to that board's page. Boards Mervak exported
// come back as they were. Pictures are named `pictureFolder`/file, relative to
// the Template's folder.
std::variant<BoardImport, BoardError> importBoards(const BoardPackage& package,
                                                   const QString& pictureFolder);

} // namespace mervak
