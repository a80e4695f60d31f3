#pragma once

#include "platform/Language.h"
#include "sheet/PictureFiles.h"
#include "template/Template.h"

#include <QString>

class QWidget;

namespace mervak {

struct FileFilter;

// The open and save dialogs' filter for communication boards.
FileFilter boardFilter(bool packageOnly);

// A name the Open Board import or export takes (".obf", ".obz", any case).
bool isBoardFile(const QString& path);

// Imports a board file: asks where to save the Template it becomes (a ".mvw"
// beside the board by default), writes it with its pictures and says what did
// not come across. The Template's path, or empty when cancelled or refused
// (the refusal shown).
QString importBoardWithDialog(QWidget* parent, Language language, const QString& boardPath);

// Exports the Template as the ".obz" `path`, its pictures found from
// `templateFolder`; says what other programs will not see. False when refused.
bool exportBoardReporting(QWidget* parent, Language language, const Template& t,
                          const QString& path, const PictureFiles& pictures);

} // namespace mervak
