#include "action/dryrun/DryRunClipboard.h"

#include <QFileInfo>

namespace mervak {

void DryRunClipboard::clear() {
    text_.clear();
    picture_.clear();
}

void DryRunClipboard::setText(const QString& text) {
    clear();
    text_ = text;
}

bool DryRunClipboard::setPictureFromFile(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile() || !file.isReadable())
        return false;
    clear();
    picture_ = path;
    return true;
}

} // namespace mervak
