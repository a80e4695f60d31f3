// The tablet against the simulator program on a real pseudo-terminal.

#include "devices/EasyTablet.h"
#include "devices/QtSerialLink.h"
#include "devices/TabletMessages.h"

#include <QProcess>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace mervak {
namespace {

constexpr int kWaitMs = 10000;

bool startAndWait(EasyTablet& tablet, const QString& port, QString* message) {
    QSignalSpy finished(&tablet, &EasyTablet::startFinished);
    tablet.start(port);
    if (finished.isEmpty() && !finished.wait(kWaitMs))
        return false;
    *message = finished[0][1].toString();
    return finished[0][0].toBool();
}

// From the handshake to decoded positions, then the simulator vanishes.
TEST(TabletSimulator, StreamsPositionsUntilThePortIsLost) {
    qRegisterMetaType<PressPoint>();
    QProcess simulator; // its terminal's path is the first line it prints
    simulator.start(QStringLiteral(MERVAK_TABLET_SIM));
    while (!simulator.canReadLine() && simulator.waitForReadyRead(kWaitMs)) {
    }
    const QString path = QString::fromLocal8Bit(simulator.readLine()).trimmed();
    ASSERT_TRUE(path.startsWith(QStringLiteral("/dev/pts/"))) << path.toStdString();
    EasyTablet tablet(makeQtSerialLink);
    QString message;
    ASSERT_TRUE(startAndWait(tablet, path, &message)) << message.toStdString();

    QSignalSpy spy(&tablet, &EasyTablet::positionArrived);
    // Packets that arrive in one read make one position, as with the real tablet,
    // so they are spaced well apart even on a busy machine.
    simulator.write("press 10 20\nwait 200\nlift\nwait 200\npress 119 1 2 200\nwait 200\n"
                    "press 120 5\n");
    while (spy.size() < 5 && spy.wait(kWaitMs)) {
    }
    QList<PressPoint> points;
    for (const QList<QVariant>& arguments : spy)
        points << arguments[0].value<PressPoint>();
    EXPECT_EQ(points, (QList<PressPoint>{{10, 20}, {0, 0}, {119, 1}, {119, 1}, {0, 0}}));

    simulator.write("press 3 4\n");
    ASSERT_TRUE(spy.wait(kWaitMs));
    QSignalSpy status(&tablet, &EasyTablet::statusMessage);
    QSignalSpy closed(&tablet, &EasyTablet::portClosed);
    simulator.kill();
    simulator.waitForFinished(kWaitMs);
    ASSERT_TRUE(status.wait(kWaitMs));
    EXPECT_EQ(status[0][0].toString(), portLostText(Language::Catalan, path));
    EXPECT_EQ(closed.size(), 1);
    EXPECT_FALSE(tablet.isOpen());
    EXPECT_EQ(tablet.easyPosition(), (PressPoint{0, 0}));
    EXPECT_FALSE(startAndWait(tablet, path, &message));
    EXPECT_TRUE(message.contains(path)) << message.toStdString();
}

} // namespace
} // namespace mervak
