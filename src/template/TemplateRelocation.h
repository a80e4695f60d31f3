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
// the sheet image, each Area's Clip, every file named by "{|Enganxa ...}" and
// "{|Sona ...}" blocks and the programs "{|Executa ...}" blocks name relative to
// `sourceFolder` and find there are copied into `targetFolder` under their own
// file names (keeping their permissions), and their references become those
// bare names. A name already taken there by a different file gets "-2", "-3"...
// before its extension; a file with the same content is reused, never overwritten.
RelocationReport relocateFiles(Template& t, const QString& sourceFolder,
                               const QString& targetFolder);

// Names the files that lie inside `folder` by their place there: a sheet image,
// Clip or "{|Enganxa ...}"/"{|Sona ...}" file stored with a local absolute path
// into `folder` becomes relative to it ("\" between folders, as stored names
// have), so that the folder keeps working when copied whole to another machine.
// Windows paths ("C:\..."), relative names and files elsewhere stay as stored.
void storeRelativeInside(Template& t, const QString& folder);

// True when saving `t` as `newFile` puts it in another folder than its own
// file's; never for an untitled Template.
bool movesFolder(const Template& t, const QString& newFile);

// An untitled Template's relative names resolve against the working folder.
// Saved as `newFile` in another folder, it takes along what they name there,
// as relocateFiles does; in the same folder nothing changes. (A Template with
// a file has its files moved as it is saved.)
RelocationReport relocateUntitled(Template& t, const QString& workingFolder,
                                  const QString& newFile);

} // namespace mervak
