#include "devices/EasyProbe.h"

#include "devices/EasyProtocol.h"
#include "platform/TextEncoding.h"

namespace mervak {

namespace {

const EasyExchange& handshake() {
    return kEasySetup[0];
}

} // namespace

EasyProbe::EasyProbe(SerialLinkFactory makeLink, QObject* parent)
    : QObject(parent), makeLink_(std::move(makeLink)) {
    connect(&wait_, &ReplyWait::finished, this, &EasyProbe::onReply);
    step_.setSingleShot(true);
    connect(&step_, &QTimer::timeout, this, &EasyProbe::probeNext);
}

// Not from inside a link notification, so the link can go at once.
EasyProbe::~EasyProbe() {
    if (link_)
        link_->disconnect(this);
}

void EasyProbe::start(const QStringList& candidates, int timeoutMs) {
    cancel();
    candidates_ = candidates;
    next_ = 0;
    timeoutMs_ = timeoutMs;
    running_ = true;
    probeNext();
}

void EasyProbe::cancel() {
    step_.stop();
    wait_.cancel();
    closeLink(link_, this);
    running_ = false;
}

void EasyProbe::probeNext() {
    while (next_ < candidates_.size()) {
        link_ = makeLink_();
        if (!link_->open(candidates_[next_++]).ok())
            continue;
        connect(link_.get(), &SerialLink::received, this,
                [this](const QByteArray& bytes) { wait_.append(fromWindows1252(bytes)); });
        // A port that vanishes meanwhile just lets the wait run out.
        wait_.begin(timeoutMs_);
        link_->write(easyCommandBytes(handshake().command));
        return;
    }
    closeLink(link_, this);
    running_ = false;
    emit finished(QString(), static_cast<int>(next_));
}

void EasyProbe::onReply(const QString& reply) {
    closeLink(link_, this);
    if (replyHolds(reply, handshake().expected)) {
        running_ = false;
        emit finished(candidates_[next_ - 1], static_cast<int>(next_));
        return;
    }
    // Go on from the event loop, not from inside the link's notification.
    step_.start(0);
}

} // namespace mervak
