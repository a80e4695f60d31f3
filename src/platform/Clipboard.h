#pragma once

#include <QString>

namespace mervak {

class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void clear() = 0;
    virtual void setText(const QString& text) = 0;
    // Loads the picture file and puts it on the clipboard; false when it cannot be read.
    virtual bool setPictureFromFile(const QString& path) = 0;
    // The text on the clipboard, or empty when it holds no text.
    virtual QString text() = 0;
};

} // namespace mervak
