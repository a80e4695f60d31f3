// mervak-serial-bench: latency from a packet written on a pseudo-terminal to the
// tablet's position signal, and to the port's read notification before it.
// Usage: mervak-serial-bench [PACKETS]   (default 1000)

#include "PtyPair.h"
#include "TabletResponder.h"
#include "devices/EasyTablet.h"
#include "devices/QtSerialLink.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <random>
#include <thread>
#include <vector>

using namespace mervak;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kCoordinates = kEasyMaxCoordinate; // 1..119: every packet is a press
constexpr int kGapUs = 2000;                     // between packets, plus up to 1 ms jitter

// Packet i carries a position no other packet of the run carries.
PressPoint positionOf(int i) {
    return {static_cast<int16_t>(1 + i % kCoordinates),
            static_cast<int16_t>(1 + (i / kCoordinates) % kCoordinates)};
}

int indexOf(int x, int y) {
    return (x - 1) + (y - 1) * kCoordinates;
}

struct Samples {
    explicit Samples(int n) : written(n), read(n), signalled(n) {}
    std::vector<Clock::time_point> written, read, signalled;
};

void report(const char* what, const Samples& s, const std::vector<Clock::time_point>& end) {
    std::vector<double> us;
    for (std::size_t i = 0; i < end.size(); ++i)
        if (end[i] != Clock::time_point{})
            us.push_back(std::chrono::duration<double, std::micro>(end[i] - s.written[i]).count());
    if (us.empty()) {
        std::printf("%-28s no packet arrived\n", what);
        return;
    }
    std::sort(us.begin(), us.end());
    const auto at = [&](double q) {
        return us[std::min(us.size() - 1, std::size_t(q * us.size()))];
    };
    std::printf("%-28s n=%zu  p50 %.1f us  p99 %.1f us  max %.1f us\n", what, us.size(), at(0.50),
                at(0.99), us.back());
}

void writePackets(sim::PtyPair& pty, Samples& samples, std::atomic<bool>& done) {
    std::mt19937 random(1);
    for (std::size_t i = 0; i < samples.written.size(); ++i) {
        std::this_thread::sleep_for(std::chrono::microseconds(kGapUs + random() % 1000));
        const PressPoint p = positionOf(static_cast<int>(i));
        const QByteArray packet = QByteArray(1, '^') + char(p.x) + char(p.y);
        samples.written[i] = Clock::now(); // just before the write: a slight overestimate
        pty.write(packet);
    }
    done = true;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int packets = argc > 1 ? std::max(1, atoi(argv[1])) : 1000;
    sim::PtyPair pty;
    QString error;
    if (!pty.create(&error)) {
        std::fprintf(stderr, "mervak-serial-bench: %s\n", error.toLocal8Bit().constData());
        return 1;
    }
    sim::TabletResponder responder;
    QSocketNotifier host(pty.masterFd(), QSocketNotifier::Read);
    QObject::connect(&host, &QSocketNotifier::activated,
                     [&] { pty.write(responder.feed(pty.readAvailable())); });

    Samples samples(packets);
    // The bench's own read hook is connected before the tablet's, so it runs first.
    EasyTablet tablet([&samples] {
        auto link = makeQtSerialLink();
        QObject::connect(link.get(), &SerialLink::received, [&samples](const QByteArray& b) {
            if (b.size() == 3 && b[0] == '^')
                samples.read[indexOf(b[1], b[2])] = Clock::now();
        });
        return link;
    });
    QObject::connect(&tablet, &EasyTablet::positionArrived,
                     [&](PressPoint p) { samples.signalled[indexOf(p.x, p.y)] = Clock::now(); });

    std::atomic<bool> done = false;
    std::thread writer;
    QObject::connect(&tablet, &EasyTablet::startFinished, [&](bool ok, const QString& why) {
        if (!ok) {
            std::fprintf(stderr, "set-up failed: %s\n", why.toLocal8Bit().constData());
            app.exit(1);
            return;
        }
        writer = std::thread(writePackets, std::ref(pty), std::ref(samples), std::ref(done));
    });
    QTimer finish;
    QObject::connect(&finish, &QTimer::timeout, [&] {
        if (!done)
            return;
        finish.stop();
        QTimer::singleShot(100, &app, &QCoreApplication::quit);
    });
    finish.start(50);
    tablet.start(pty.slavePath());
    const int status = app.exec();
    if (writer.joinable())
        writer.join();
    if (status != 0)
        return status;
    std::printf("%d packets on %s\n", packets, pty.slavePath().toLocal8Bit().constData());
    report("pty write -> readyRead", samples, samples.read);
    report("pty write -> positionArrived", samples, samples.signalled);
    return 0;
}
