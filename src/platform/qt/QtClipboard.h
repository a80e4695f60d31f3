#pragma once

#include "platform/Clipboard.h"

namespace mervak {

// The system clipboard through Qt. It needs a QGuiApplication; without one (a
// headless tool) it holds nothing and every change is ignored.
class QtClipboard : public Clipboard {
public:
    void clear() override;
    void setText(const QString& text) override;
    // Any picture format Qt reads (PNG, JPEG, BMP, GIF, ...).
    bool setPictureFromFile(const QString& path) override;
    QString text() override;
};

} // namespace mervak
