#pragma once

#include "platform/Clipboard.h"

namespace mervak {

// A clipboard of its own that leaves the system's alone. Changing it is not an
// effect by itself: what it holds shows in the "paste" effect that uses it and
// in the last "state" line.
class DryRunClipboard : public Clipboard {
public:
    explicit DryRunClipboard(const QString& text = {}) : text_(text) {}

    void clear() override;
    void setText(const QString& text) override;
    // Remembers the path when the file can be read; the picture is not decoded.
    bool setPictureFromFile(const QString& path) override;
    QString text() override { return text_; }

    // The path of the picture it holds; empty when it holds none.
    QString picture() const { return picture_; }

private:
    QString text_;
    QString picture_;
};

} // namespace mervak
