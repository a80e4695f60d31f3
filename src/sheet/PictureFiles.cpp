#include "sheet/PictureFiles.h"

#include "platform/PathResolver.h"
#include "template/AreaCell.h"

#include <QFileInfo>

namespace mervak {

QString PictureFiles::find(const QString& picture) const {
    if (picture.isEmpty())
        return {};
    if (isSymbolReference(picture))
        return symbolFile ? symbolFile(symbolHexcode(picture)) : QString();
    const QString path = resolveStoredPath(picture, templateFolder);
    return QFileInfo(path).isFile() ? path : QString();
}

} // namespace mervak
