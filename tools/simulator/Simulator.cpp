#include "Simulator.h"

#include <algorithm>
#include <cstdio>

namespace mervak::sim {

namespace {

// Milliseconds the bytes take on the line at 9600 baud, 10 bits a byte, rounded
// up: the next write waits for them, so packets never pile up faster than a
// real tablet could send them.
int lineTimeMs(qsizetype bytes) {
    return static_cast<int>((bytes * 10 * 1000 + 9599) / 9600);
}

// Closing the terminal discards what the far side has not read yet, so quit
// waits for it, checking this often, at most this many times.
constexpr int kDrainCheckMs = 10;
constexpr int kMaxDrainChecks = 100;

} // namespace

Simulator::Simulator(PtyPair& pty, const Options& options, QObject* parent)
    : QObject(parent), pty_(pty), hostNotifier_(pty.masterFd(), QSocketNotifier::Read),
      random_(options.seed), verbose_(options.verbose) {
    responder_.setIdentification(options.identification);
    responder_.setMute(options.mute);
    connect(&hostNotifier_, &QSocketNotifier::activated, this, &Simulator::onHostBytes);
    stepTimer_.setSingleShot(true);
    connect(&stepTimer_, &QTimer::timeout, this, &Simulator::runNext);
}

void Simulator::enqueue(const SimStep& step) {
    steps_.push_back(step);
    runNext();
}

void Simulator::onHostBytes() {
    const QByteArray bytes = pty_.readAvailable();
    const bool wasStreaming = responder_.isStreaming();
    const QByteArray reply = responder_.feed(bytes);
    if (verbose_ && !bytes.isEmpty())
        std::fprintf(stderr, "host: %s\n", bytes.toPercentEncoding("@=#/ ").constData());
    writeLine(reply);
    if (!wasStreaming && responder_.isStreaming())
        runNext();
}

void Simulator::runNext() {
    if (stepTimer_.isActive() || steps_.empty())
        return;
    SimStep& step = steps_.front();
    switch (step.kind) {
    case SimStep::Kind::Quit:
        if (pty_.unreadByFarSide() > 0 && drainChecks_++ < kMaxDrainChecks) {
            stepTimer_.start(kDrainCheckMs);
            return;
        }
        emit quitRequested();
        return;
    case SimStep::Kind::Wait:
        stepTimer_.start(step.intervalMs);
        steps_.pop_front();
        return;
    case SimStep::Kind::Garbage:
    case SimStep::Kind::Packets:
        break;
    }
    if (!responder_.isStreaming())
        return;
    if (step.kind == SimStep::Kind::Garbage) {
        QByteArray noise(step.count, '\0');
        for (char& c : noise)
            c = static_cast<char>(random_() & 0xFF);
        writeLine(noise);
        steps_.pop_front();
        stepTimer_.start(lineTimeMs(noise.size()));
        return;
    }
    writeLine(step.packet);
    const bool last = ++packetsSent_ == step.count;
    const int lineTime = lineTimeMs(step.packet.size());
    stepTimer_.start(last ? lineTime : std::max(lineTime, step.intervalMs));
    if (last) {
        packetsSent_ = 0;
        steps_.pop_front();
    }
}

void Simulator::writeLine(const QByteArray& bytes) {
    if (bytes.isEmpty())
        return;
    const qsizetype written = pty_.write(bytes);
    if (verbose_)
        std::fprintf(stderr, "tablet: %s%s\n", bytes.toPercentEncoding("@=#/ ").constData(),
                     written < bytes.size() ? " (line full, rest dropped)" : "");
}

} // namespace mervak::sim
