#pragma once

#include "openboard/BoardMessages.h"
#include "sheet/PictureFiles.h"
#include "template/Template.h"

#include <optional>

namespace mervak {

struct BoardFileOutcome {
    std::optional<BoardError> error; // then nothing was written
    QList<BoardNote> notes;          // what did not come across
    QStringList written;             // the files written, the main one last
};

// The folder, beside a Template, that holds the pictures its import brought:
// the Template's name followed by "-imatges".
QString importedPictureFolder(const QString& templatePath);

// Imports a ".obf" or ".obz" as the Template `templatePath` (".mvw"), its
// pictures into importedPictureFolder(). All or nothing: a board that does not
// read, or a file that cannot be written, leaves no file behind.
BoardFileOutcome importBoardFile(const QString& boardPath, const QString& templatePath);

// Writes the Template as the ".obz" `obzPath` (atomically), its boards named
// `title`; its pictures are found through `pictures`.
BoardFileOutcome exportBoardFile(const Template& t, const QString& obzPath, const QString& title,
                                 const PictureFiles& pictures);

} // namespace mervak
