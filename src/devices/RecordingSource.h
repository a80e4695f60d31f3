#pragma once

#include "devices/EvemuFormat.h"
#include "devices/InputEventSource.h"

#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>
#include <deque>
#include <memory>

namespace mervak {

// Plays a recording in evemu's text format as the device, with its recorded
// timing. A regular file is read whole when opened; a named pipe is read as it
// is written, so that a tool can play a device live, each event when it is due.
class RecordingSource : public InputEventSource {
    Q_OBJECT
public:
    explicit RecordingSource(QString path, QObject* parent = nullptr);
    ~RecordingSource() override;

    OpenResult open() override;
    void setGrabbed(bool) override {}
    const InputCapabilities& capabilities() const override { return parser_.capabilities(); }

private:
    bool readChunk(int fd);
    bool parseLines(bool atEnd);
    void becomeReady();
    void deliverDue();
    void scheduleNext();
    void fail();

    QString path_;
    int fd_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
    QByteArray pending_;
    int lineNumber_ = 0;
    QString error_;
    EvemuParser parser_;
    bool ready_ = false;
    std::deque<InputEvent> queue_;
    QElapsedTimer clock_; // started with the first event
    QTimer timer_;
};

} // namespace mervak
