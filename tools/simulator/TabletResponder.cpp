#include "TabletResponder.h"

#include <QRegularExpression>

namespace mervak::sim {

namespace {

// Bytes of one command line the host could send; longer lines are noise.
constexpr qsizetype kMaxCommandLength = 256;

} // namespace

QByteArray TabletResponder::defaultIdentification() {
    return QByteArrayLiteral("Anastasis/Smack EASY overlay tablet, simulated");
}

QByteArray TabletResponder::feed(const QByteArray& fromHost) {
    QByteArray out;
    for (char c : fromHost) {
        if (c != '\r' && c != '\n') {
            if (pending_.size() < kMaxCommandLength)
                pending_ += c;
            continue;
        }
        if (pending_.isEmpty())
            continue;
        lastCommand_ = pending_.trimmed();
        pending_.clear();
        const QByteArray reply = answer(lastCommand_);
        if (!mute_ && !reply.isEmpty())
            out += reply + '\r';
    }
    return out;
}

QByteArray TabletResponder::answer(const QByteArray& command) {
    static const QRegularExpression setRegister(QStringLiteral("^@S\\d+=\\d+$"));
    if (command == "@Z0") {
        streaming_ = false;
        return "#0";
    }
    if (command == "@I")
        return identification_;
    if (command == "@X") {
        streaming_ = true;
        return {};
    }
    if (setRegister.match(QString::fromLatin1(command)).hasMatch())
        return "#0";
    return "#1";
}

} // namespace mervak::sim
