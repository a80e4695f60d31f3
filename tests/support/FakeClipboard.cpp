#include "support/FakeClipboard.h"

#include <QFileInfo>

namespace mervak::test {

void FakeClipboard::clear() {
    text_.clear();
    picture_.clear();
    logTo(log_, QStringLiteral("clipboard clear"));
}

void FakeClipboard::setText(const QString& text) {
    text_ = text;
    logTo(log_, QStringLiteral("clipboard text ") + text);
}

bool FakeClipboard::setPictureFromFile(const QString& path) {
    if (!QFileInfo(path).isFile())
        return false;
    picture_ = path;
    text_.clear();
    logTo(log_, QStringLiteral("clipboard picture ") + path);
    return true;
}

} // namespace mervak::test
