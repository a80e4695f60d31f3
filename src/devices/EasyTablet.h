#pragma once

#include "devices/EasyPacket.h"
#include "devices/EasyProbe.h"
#include "devices/PressPoint.h"
#include "devices/ReplyWait.h"
#include "devices/SerialLink.h"
#include "platform/Language.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <memory>

namespace mervak {

// The serial "EASY" tablet: opens its port, runs the set-up dialogue, then
// decodes the position stream into the EASY position slot. Closed, then command
// mode (packet mode 0) while starting, then streaming (packet mode 1) until
// stopped; a failed dialogue leaves the port open in command mode. Everything
// runs from the event loop; nothing here blocks.
class EasyTablet : public QObject {
    Q_OBJECT
public:
    explicit EasyTablet(SerialLinkFactory makeLink, QObject* parent = nullptr);
    ~EasyTablet() override;

    // Language of the plain-words messages (the event table texts stay as they are).
    void setLanguage(Language language);
    // The configured delay, in seconds, that a reply may take (see replyWaitMs).
    void setRetardPort(int32_t seconds);
    // The ports auto-detection tries; serialPortCandidates() when never set.
    void setProbeCandidates(const QStringList& ports);
    // The main window's port state; while it is 2 an error event closes the port.
    void setPortState(int16_t state);

    // Opens `devicePath` as it is given (an empty path auto-detects the port
    // first) and runs the set-up dialogue. Ends with one startFinished, unless
    // stop() or another start() abandons it first.
    void start(const QString& devicePath);
    // Closes the port and abandons any start; emits nothing.
    void stop();

    // The EASY position slot: the latest decoded packet; (0, 0) is no press, as
    // is a closed port.
    PressPoint easyPosition() const { return position_; }
    bool isOpen() const;
    // The port in use, or last tried; empty before any start.
    QString portPath() const { return portPath_; }

signals:
    // The outcome of start(): on failure, `message` says why in plain words.
    void startFinished(bool ok, const QString& message);
    // A packet was decoded and stored in the slot; emitted at once, so a press
    // can be dispatched without waiting for the next poll. (0, 0) is no press.
    void positionArrived(mervak::PressPoint position);
    // A status text for the status caption: a status event of the table, or a
    // lost port in plain words.
    void statusMessage(const QString& text);
    // An error event of the table: the user hears a beep. The text is for logs.
    void beepRequested(const QString& errorText);
    // The port closed by itself: the device was lost, or an error came in port
    // state 2.
    void portClosed();

private:
    void openAndSetUp(const QString& port);
    void onProbeFinished(const QString& port, int portsTried);
    void sendStep();
    void onReply(const QString& reply);
    void finishStart(bool ok, const QString& message);
    void onReceived(const QByteArray& bytes);
    void onSent();
    void onLineEvent(int code);
    void onLost();

    SerialLinkFactory makeLink_;
    std::unique_ptr<SerialLink> link_;
    EasyProbe probe_;
    ReplyWait wait_;
    Language language_ = Language::Catalan;
    int32_t retardPort_ = 0;
    QStringList probeCandidates_;
    bool candidatesSet_ = false;
    int16_t portState_ = 0;
    QString portPath_;
    bool starting_ = false;
    std::size_t step_ = 0;
    bool heard_ = false; // bytes arrived during the current reply wait
    int16_t packetMode_ = 0;
    PressPoint position_;
    QString commEventText_; // pending status message
    QString commErrorText_; // pending error message
};

} // namespace mervak
