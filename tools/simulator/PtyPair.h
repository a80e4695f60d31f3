#pragma once

#include <QByteArray>
#include <QString>

namespace mervak::sim {

// A pseudo-terminal pair in raw mode: we hold the master, the program under
// test opens the slave by its path. The slave is kept open on our side too, so
// the far side may close and reopen it without the master ever seeing a hang-up.
class PtyPair {
public:
    PtyPair() = default;
    ~PtyPair();
    PtyPair(const PtyPair&) = delete;
    PtyPair& operator=(const PtyPair&) = delete;

    // False with a reason in plain words when the system has no pseudo-terminal left.
    bool create(QString* error);

    QString slavePath() const { return slavePath_; }
    int masterFd() const { return master_; }

    // Everything the far side has written so far; empty when nothing is waiting.
    QByteArray readAvailable();
    // Writes what the terminal takes now, without blocking; a full buffer drops
    // the rest, as a line with nobody listening would. Returns the bytes written.
    qsizetype write(const QByteArray& bytes);
    // Bytes written that the far side has not read yet.
    int unreadByFarSide() const;

private:
    int master_ = -1;
    int slave_ = -1;
    QString slavePath_;
};

} // namespace mervak::sim
