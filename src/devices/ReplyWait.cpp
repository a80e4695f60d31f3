#include "devices/ReplyWait.h"

#include <algorithm>
#include <utility>

namespace mervak {

int replyWaitMs(int32_t retardPortSeconds) {
    const int64_t ms = static_cast<int64_t>(retardPortSeconds) * 1000;
    return static_cast<int>(std::clamp<int64_t>(ms, kMinReplyWaitMs, kMaxReplyWaitMs));
}

ReplyWait::ReplyWait(QObject* parent) : QObject(parent) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &ReplyWait::finish);
}

void ReplyWait::begin(int timeoutMs) {
    reply_.clear();
    waiting_ = true;
    timer_.start(timeoutMs);
}

void ReplyWait::append(const QString& text) {
    if (!waiting_)
        return;
    reply_ += text.left(kMaxReplyLength - reply_.size());
    if (reply_.contains(QChar(u'\r')))
        finish();
}

void ReplyWait::cancel() {
    timer_.stop();
    waiting_ = false;
}

// Hands over a copy: a receiver may begin the next wait at once.
void ReplyWait::finish() {
    cancel();
    const QString reply = std::exchange(reply_, QString());
    emit finished(reply);
}

} // namespace mervak
