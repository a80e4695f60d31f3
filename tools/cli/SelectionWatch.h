#pragma once

#include <QAbstractNativeEventFilter>

namespace mervak::cli {

// Sees the X11 requests for the selections this process owns: a target that
// pastes the clipboard asks this process for the content, which goes when the
// process ends. Install it on the QGuiApplication before anything is put on the
// clipboard.
class SelectionWatch : public QAbstractNativeEventFilter {
public:
    SelectionWatch();
    ~SelectionWatch() override;
    SelectionWatch(const SelectionWatch&) = delete;
    SelectionWatch& operator=(const SelectionWatch&) = delete;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    // Runs the event loop until a request has come and none follows for `quietMs`
    // (a target may ask for the formats first, then the text), or for `capMs` in
    // all when none comes. Milliseconds.
    void serve(int quietMs, int capMs);

private:
    int requests_ = 0;
};

} // namespace mervak::cli
