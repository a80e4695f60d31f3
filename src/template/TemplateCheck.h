#pragma once

#include "template/Template.h"

#include <QList>
#include <QString>

namespace mervak {

// Something in a Template that a teacher should fix.
struct TemplateProblem {
    enum class Kind {
        PageOutOfRange,    // the Area's page is below 1 or above PageCount; `text` is the page
        ZeroSize,          // the Area has no width or no height
        SheetImageMissing, // FitxGraf names no file; `text` is FitxGraf
        SheetImageComma,   // FitxGraf holds a comma, which does not read back
        ClipMissing,       // the Area's Clip names no file; `text` is the Clip
        FileMissing, // an "{|Enganxa ...}" or "{|Sona ...}" file is missing; `text` is its name
        SoundNotPlayable, // a "{|Sona ...}" name does not end in exactly ".WAV" or ".MID"
    };
    Kind kind;
    int16_t area = 0; // array index; 0 for the header
    QString text;
};

// The problems of `t`, header first, then Areas in array order. File names are
// looked up from `folder`, the Template's own folder.
QList<TemplateProblem> checkTemplate(const Template& t, const QString& folder);

} // namespace mervak
