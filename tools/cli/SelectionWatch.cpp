#include "SelectionWatch.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <cstdint>

namespace mervak::cli {

namespace {

// The xcb event code of a SelectionRequest; the top bit marks a sent event.
constexpr std::uint8_t kSelectionRequest = 30;
constexpr int kPollMs = 10;

} // namespace

SelectionWatch::SelectionWatch() {
    QCoreApplication::instance()->installNativeEventFilter(this);
}

SelectionWatch::~SelectionWatch() {
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool SelectionWatch::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType == "xcb_generic_event_t" &&
        (static_cast<const std::uint8_t*>(message)[0] & 0x7F) == kSelectionRequest)
        ++requests_;
    return false; // Qt answers the request
}

void SelectionWatch::serve(int quietMs, int capMs) {
    QElapsedTimer total;
    total.start();
    QElapsedTimer quiet;
    quiet.start();
    int seen = requests_;
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (requests_ != seen) {
            seen = requests_;
            quiet.restart();
        }
        if ((seen > 0 && quiet.elapsed() >= quietMs) || total.elapsed() >= capMs)
            loop.quit();
    });
    poll.start(kPollMs);
    loop.exec();
}

} // namespace mervak::cli
