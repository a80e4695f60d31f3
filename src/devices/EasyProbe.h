#pragma once

#include "devices/ReplyWait.h"
#include "devices/SerialLink.h"

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <memory>

namespace mervak {

// Finds the tablet: tries each candidate port in turn, one at a time, with the
// "@Z0" handshake, and stops at the first that answers "#0". Ports that cannot
// be opened are skipped. Never blocks the event loop.
class EasyProbe : public QObject {
    Q_OBJECT
public:
    explicit EasyProbe(SerialLinkFactory makeLink, QObject* parent = nullptr);
    ~EasyProbe() override;

    // Starts probing; a probe already running is abandoned first.
    // `timeoutMs` is the wait for each port's answer.
    void start(const QStringList& candidates, int timeoutMs = kMinReplyWaitMs);
    void cancel();
    bool isRunning() const { return running_; }

signals:
    // The port that answered, or an empty string when none did.
    void finished(const QString& port, int portsTried);

private:
    void probeNext();
    void onReply(const QString& reply);

    SerialLinkFactory makeLink_;
    std::unique_ptr<SerialLink> link_;
    ReplyWait wait_;
    QTimer step_; // runs the next probe from the event loop
    QStringList candidates_;
    qsizetype next_ = 0;
    int timeoutMs_ = kMinReplyWaitMs;
    bool running_ = false;
};

} // namespace mervak
