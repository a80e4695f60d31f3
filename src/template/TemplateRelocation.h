#pragma once

#include "template/Template.h"
#include "template/TemplateError.h"

#include <QStringList>
#include <optional>

namespace mervak {

struct RelocationReport {
    QStringList copied;  // files written into the new folder
    QStringList missing; // stored names that named no file; their references are kept
    std::optional<TemplateError> error; // a copy could not be written
};

// Prepares a Template that is being saved from `sourceFolder` into `targetFolder`:
// the sheet image, each Area's Clip and every file named by "{|Enganxa ...}" and
// "{|Sona ...}" blocks are found from `sourceFolder` and copied into
// `targetFolder` under their own file names, and their references become those
// bare names. A name already taken there by a different file gets "-2", "-3"...
// before its extension; a file with the same content is reused, never overwritten.
RelocationReport relocateFiles(Template& t, const QString& sourceFolder,
                               const QString& targetFolder);

// True when saving `t` as `newFile` puts it in another folder than its own
// file's; never for an untitled Template.
bool movesFolder(const Template& t, const QString& newFile);

} // namespace mervak
