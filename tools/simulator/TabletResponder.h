#pragma once

#include <QByteArray>
#include <QString>

namespace mervak::sim {

// The tablet's side of the command dialogue, without any I/O. Commands end at a
// carriage return or a line feed. "@Z0" resets the tablet (and ends streaming)
// and "@S<n>=<v>" sets a register, both acknowledged "#0"; "@I" answers the
// identification; "@X" starts streaming, unanswered; anything else gets "#1".
// Every reply ends with a carriage return.
class TabletResponder {
public:
    static QByteArray defaultIdentification();

    void setIdentification(const QByteArray& text) { identification_ = text; }
    // A mute tablet hears everything and answers nothing.
    void setMute(bool mute) { mute_ = mute; }

    // Takes what the host wrote; returns what the tablet answers.
    QByteArray feed(const QByteArray& fromHost);
    bool isStreaming() const { return streaming_; }
    // The last complete command heard, for logging.
    QByteArray lastCommand() const { return lastCommand_; }

private:
    QByteArray answer(const QByteArray& command);

    QByteArray identification_ = defaultIdentification();
    QByteArray pending_;
    QByteArray lastCommand_;
    bool mute_ = false;
    bool streaming_ = false;
};

} // namespace mervak::sim
