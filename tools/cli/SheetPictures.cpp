#include "SheetPictures.h"

#include "SheetCommands.h"
#include "sheet/SheetPainter.h"
#include "sheet/SymbolLibrary.h"

namespace mervak::cli {

bool drawsSheets(const QString& command) {
    return command == QLatin1String("render") || command == QLatin1String("cell") ||
           command == QLatin1String("sheet");
}

PictureFiles picturesOf(const Template& t) {
    return {SheetPainter::folderOf(t), SymbolLibrary::filesIn(SymbolLibrary::installedFolder())};
}

} // namespace mervak::cli
