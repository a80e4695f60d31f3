#pragma once

#include "template/MvdFormat.h"
#include "template/Template.h"
#include "template/TemplateError.h"

#include <QStringList>
#include <optional>

namespace mervak {

struct OpenOutcome {
    std::optional<TemplateError> error;   // the Template is then empty and untitled
    std::optional<TemplateError> warning; // message 15: an import's sheet image is missing
};

// Opens the Template file `name` into `t`. An empty name does nothing. A relative
// name is taken under `defaultFolder` (the current folder when empty) and letter
// case is matched as the file system allows. `t` is emptied first, so a refused
// file leaves an empty untitled Template. ".mvw" and ".mvd" (any case) are read;
// any other extension gives "Format incorrecte". On success TemplateFileName is
// the absolute path and CurrentPage 1; a version 2 file's existing sheet image
// sets GraphDate. An ".mvd" import takes as sheet image the picture beside it
// with the same name (".BMP" when none exists, with message 15 as a warning).
OpenOutcome openTemplate(Template& t, const QString& name, const QString& defaultFolder = {});

// Reads a file into a fresh Template without touching anything else.
std::optional<TemplateError> loadTemplateFile(const QString& path, Template& out,
                                              std::optional<TemplateError>* warning = nullptr);

struct SaveOutcome {
    std::optional<TemplateError> error; // nothing was changed
    QString path;                       // the file written
    QStringList copiedFiles;            // sheet image and clips copied into a new folder
    QStringList missingFiles;           // stored names that named no file
    QList<MvdLoss> losses;              // what an ".mvd" export left out
};

// Saves in the version 2 layout under `path`. When the Template moves to another
// folder its sheet image and the files its Areas name are copied along and
// their references rewritten (see relocateFiles). On success TemplateFileName is
// the path and Modified is cleared; on failure the Template is unchanged.
SaveOutcome saveTemplate(Template& t, const QString& path);

// "Save as": a name ending in ".MVD" (any case) exports to the MS-DOS format;
// any other name not ending in ".MVW" becomes its file name up to the first "."
// plus ".MVW". A ".mvw" is written in the version 1 layout under version number
// 2, with files copied along as saveTemplate does.
SaveOutcome saveTemplateAs(Template& t, const QString& name);

// The name "save as" writes to, by the rule above.
QString saveAsFileName(const QString& name);

} // namespace mervak
