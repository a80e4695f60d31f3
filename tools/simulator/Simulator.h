#pragma once

#include "PtyPair.h"
#include "SimScript.h"
#include "TabletResponder.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <deque>
#include <random>

namespace mervak::sim {

// The simulated tablet on a pseudo-terminal: answers the host's commands and,
// once the host has switched it to streaming, plays the script's steps in order.
// Steps that write to the line wait for streaming; waits and quit do not.
class Simulator : public QObject {
    Q_OBJECT
public:
    struct Options {
        QByteArray identification = TabletResponder::defaultIdentification();
        bool mute = false;
        unsigned seed = std::random_device{}();
        bool verbose = false; // log the dialogue on standard error
    };

    Simulator(PtyPair& pty, const Options& options, QObject* parent = nullptr);

    void enqueue(const SimStep& step);

signals:
    void quitRequested();

private:
    void onHostBytes();
    void runNext();
    void writeLine(const QByteArray& bytes);

    PtyPair& pty_;
    TabletResponder responder_;
    QSocketNotifier hostNotifier_;
    QTimer stepTimer_; // paces the steps; while it runs, the next step waits
    std::deque<SimStep> steps_;
    int packetsSent_ = 0; // of the step at the front
    int drainChecks_ = 0; // made by quit so far
    std::mt19937 random_;
    bool verbose_;
};

} // namespace mervak::sim
