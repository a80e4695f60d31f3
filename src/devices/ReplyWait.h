#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <cstdint>

namespace mervak {

// Shortest wait for a reply, so that the default delay of 0 seconds still lets
// a tablet at 9600 baud answer (an identification line takes about 40 ms).
constexpr int kMinReplyWaitMs = 300;
// Longest wait, whatever the configured delay says.
constexpr int kMaxReplyWaitMs = 60'000;
// Characters a reply keeps: a flooded line must not grow it without bound.
constexpr qsizetype kMaxReplyLength = 4096;

// How long a reply may take, in milliseconds, for a configured delay in seconds:
// the delay, but never under kMinReplyWaitMs nor over kMaxReplyWaitMs.
int replyWaitMs(int32_t retardPortSeconds);

// Collects the text of one reply without blocking the event loop. The wait ends
// at the first carriage return, or when the time is up; either way `finished`
// carries everything collected, possibly nothing.
class ReplyWait : public QObject {
    Q_OBJECT
public:
    explicit ReplyWait(QObject* parent = nullptr);

    void begin(int timeoutMs);
    // Adds text to the reply; ignored when no wait is running.
    void append(const QString& text);
    void cancel();
    bool isWaiting() const { return waiting_; }

signals:
    void finished(const QString& reply);

private:
    void finish();

    QTimer timer_;
    QString reply_;
    bool waiting_ = false;
};

} // namespace mervak
