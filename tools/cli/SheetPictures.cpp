#include "SheetPictures.h"

#include "SheetCommands.h"
#include "sheet/SheetPainter.h"

namespace mervak::cli {

bool drawsSheets(const QString& command) {
    return command == QLatin1String("render") || command == QLatin1String("cell");
}

PictureFiles picturesOf(const Template& t) {
    return {SheetPainter::folderOf(t), {}};
}

} // namespace mervak::cli
