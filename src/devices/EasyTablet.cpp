#include "devices/EasyTablet.h"

#include "devices/CommEvent.h"
#include "devices/EasyProtocol.h"
#include "devices/QtSerialLink.h"
#include "devices/TabletMessages.h"
#include "platform/TextEncoding.h"

#include <utility>

namespace mervak {

namespace {

// The text the send event leaves in the reply buffer while in command mode.
const QString kSentText = QStringLiteral("enviat");

// Port state of the main window in which an error event closes the port.
constexpr int16_t kClosingPortState = 2;

} // namespace

EasyTablet::EasyTablet(SerialLinkFactory makeLink, QObject* parent)
    : QObject(parent), makeLink_(std::move(makeLink)), probe_(makeLink_) {
    connect(&probe_, &EasyProbe::finished, this, &EasyTablet::onProbeFinished);
    connect(&wait_, &ReplyWait::finished, this, &EasyTablet::onReply);
}

// Not from inside a link notification, so the link can go at once.
EasyTablet::~EasyTablet() {
    if (link_)
        link_->disconnect(this);
}

void EasyTablet::setLanguage(Language language) {
    language_ = language;
}

void EasyTablet::setRetardPort(int32_t seconds) {
    retardPort_ = seconds;
}

void EasyTablet::setProbeCandidates(const QStringList& ports) {
    probeCandidates_ = ports;
    candidatesSet_ = true;
}

void EasyTablet::setPortState(int16_t state) {
    portState_ = state;
}

bool EasyTablet::isOpen() const {
    return link_ && link_->isOpen();
}

void EasyTablet::start(const QString& devicePath) {
    stop();
    starting_ = true;
    if (!devicePath.isEmpty()) {
        openAndSetUp(devicePath);
        return;
    }
    probe_.start(candidatesSet_ ? probeCandidates_ : serialPortCandidates());
}

void EasyTablet::stop() {
    probe_.cancel();
    wait_.cancel();
    closeLink(link_, this);
    starting_ = false;
    packetMode_ = 0;
    position_ = {};
}

void EasyTablet::onProbeFinished(const QString& port, int portsTried) {
    if (port.isEmpty()) {
        finishStart(false, noTabletFoundText(language_, portsTried));
        return;
    }
    openAndSetUp(port);
}

void EasyTablet::openAndSetUp(const QString& port) {
    portPath_ = port;
    link_ = makeLink_();
    connect(link_.get(), &SerialLink::received, this, &EasyTablet::onReceived);
    connect(link_.get(), &SerialLink::sent, this, &EasyTablet::onSent);
    connect(link_.get(), &SerialLink::lineEvent, this, &EasyTablet::onLineEvent);
    connect(link_.get(), &SerialLink::lost, this, &EasyTablet::onLost);
    const OpenResult opened = link_->open(port);
    if (!opened.ok()) {
        closeLink(link_, this);
        finishStart(false, openFailedText(language_, port, opened.failure));
        return;
    }
    step_ = 0;
    sendStep();
}

void EasyTablet::sendStep() {
    heard_ = false;
    wait_.begin(replyWaitMs(retardPort_));
    link_->write(easyCommandBytes(kEasySetup[step_].command));
}

void EasyTablet::onReply(const QString& reply) {
    const EasyExchange& exchange = kEasySetup[step_];
    if (exchange.checked && !replyHolds(reply, exchange.expected)) {
        const bool identifying = step_ > 0;
        finishStart(false, !heard_       ? noAnswerText(language_, portPath_)
                           : identifying ? notTabletText(language_, portPath_)
                                         : wrongAnswerText(language_, portPath_));
        return;
    }
    if (++step_ < kEasySetup.size()) {
        sendStep();
        return;
    }
    link_->write(easyCommandBytes(kEasyStreamCommand));
    packetMode_ = 1;
    finishStart(true, QString());
}

void EasyTablet::finishStart(bool ok, const QString& message) {
    starting_ = false;
    emit startFinished(ok, message);
}

void EasyTablet::onReceived(const QByteArray& bytes) {
    if (packetMode_ == 0) {
        heard_ = true;
        wait_.append(fromWindows1252(bytes));
        return;
    }
    const EasyReceive received = decodeEasyRead(bytes);
    if (!received.position)
        return;
    position_ = *received.position;
    emit positionArrived(position_);
}

void EasyTablet::onSent() {
    if (packetMode_ == 0)
        wait_.append(kSentText);
}

// Each event fills one slot; then a pending status wins over a pending error.
void EasyTablet::onLineEvent(int code) {
    const CommEventInfo info = commEventInfo(code);
    (info.slot == CommSlot::Status ? commEventText_ : commErrorText_) = info.text;
    if (!commEventText_.isEmpty()) {
        emit statusMessage(std::exchange(commEventText_, QString()));
        return;
    }
    if (commErrorText_.isEmpty())
        return;
    emit beepRequested(std::exchange(commErrorText_, QString()));
    if (portState_ == kClosingPortState && isOpen()) {
        link_->close();
        position_ = {};
        emit portClosed();
    }
}

void EasyTablet::onLost() {
    position_ = {};
    const QString text = portLostText(language_, portPath_);
    emit statusMessage(text);
    emit portClosed();
    if (starting_) {
        wait_.cancel();
        finishStart(false, text);
    }
}

} // namespace mervak
