#pragma once

#include "sheet/PictureFiles.h"
#include "template/Template.h"
#include "template/TemplateFile.h"

#include <QString>

namespace mervak {

// The picture of a composed page written beside its Template: "name-lamina2.png".
QString pageImageName(const QString& templatePath, int16_t page);

// The resolution of the page pictures written beside a composed Template.
constexpr double kPageImageDpi = 150;

// Saves as saveTemplate does ("save as" when `saveAs`), and for a composed
// Template then writes each page as it prints to a PNG beside it and saves
// once more with FitxGraf naming page 1's, so that readers that know only
// FitxGraf still show the sheet. When a picture cannot be written the Template
// is saved all the same and `error` of the outcome says which picture failed.
SaveOutcome saveWithPageImages(Template& t, const QString& path, bool saveAs,
                               const SymbolFileLookup& symbols);

} // namespace mervak
