#pragma once

#include "platform/Clipboard.h"
#include "support/EffectLog.h"

namespace mervak::test {

// A clipboard in memory. Logs "clipboard clear", "clipboard text <text>" and
// "clipboard picture <path>". A picture loads when its file exists.
class FakeClipboard : public Clipboard {
public:
    explicit FakeClipboard(EffectLog* log = nullptr) : log_(log) {}

    // Puts text on the clipboard without logging it, as another program would.
    void hold(const QString& text) { text_ = text; }
    const QString& picture() const { return picture_; }

    void clear() override;
    void setText(const QString& text) override;
    bool setPictureFromFile(const QString& path) override;
    QString text() override { return text_; }

private:
    EffectLog* log_;
    QString text_;
    QString picture_;
};

} // namespace mervak::test
