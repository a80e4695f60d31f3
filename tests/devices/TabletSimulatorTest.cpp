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

// One simulator process; its terminal's path is the first line it prints.
class SimulatorProcess {
public:
    explicit SimulatorProcess(const QStringList& arguments = {}) {
        process_.start(QStringLiteral(MERVAK_TABLET_SIM), arguments);
        while (!process_.canReadLine() && process_.waitForReadyRead(kWaitMs)) {
        }
        path_ = QString::fromLocal8Bit(process_.readLine()).trimmed();
    }
    ~SimulatorProcess() {
        process_.kill();
        process_.waitForFinished(kWaitMs);
    }

    QString path() const { return path_; }
    void send(const QByteArray& script) { process_.write(script); }
    void kill() {
        process_.kill();
        process_.waitForFinished(kWaitMs);
    }

private:
    QProcess process_;
    QString path_;
};

bool startAndWait(EasyTablet& tablet, const QString& port, QString* message = nullptr) {
    QSignalSpy finished(&tablet, &EasyTablet::startFinished);
    tablet.start(port);
    if (finished.isEmpty() && !finished.wait(kWaitMs))
        return false;
    if (message)
        *message = finished[0][1].toString();
    return finished[0][0].toBool();
}

QList<PressPoint> positions(const QSignalSpy& spy) {
    QList<PressPoint> points;
    for (const QList<QVariant>& arguments : spy)
        points << arguments[0].value<PressPoint>();
    return points;
}

class TabletSimulatorTest : public ::testing::Test {
protected:
    TabletSimulatorTest() { qRegisterMetaType<PressPoint>(); }
    EasyTablet tablet{makeQtSerialLink};
};

TEST_F(TabletSimulatorTest, FromHandshakeToDecodedPositions) {
    SimulatorProcess simulator;
    ASSERT_TRUE(simulator.path().startsWith(QStringLiteral("/dev/pts/")))
        << simulator.path().toStdString();
    QString message;
    ASSERT_TRUE(startAndWait(tablet, simulator.path(), &message)) << message.toStdString();
    EXPECT_EQ(tablet.packetMode(), 1);

    QSignalSpy spy(&tablet, &EasyTablet::positionArrived);
    simulator.send("press 10 20\nlift\npress 119 1 2 30\npress 120 5\n");
    while (spy.size() < 5 && spy.wait(kWaitMs)) {
    }
    EXPECT_EQ(positions(spy), (QList<PressPoint>{{10, 20}, {0, 0}, {119, 1}, {119, 1}, {0, 0}}));
    EXPECT_EQ(tablet.easyPosition(), (PressPoint{0, 0}));
}

TEST_F(TabletSimulatorTest, GarbageOnTheLineNeverStopsTheStream) {
    SimulatorProcess simulator({QStringLiteral("--seed"), QStringLiteral("7")});
    ASSERT_TRUE(startAndWait(tablet, simulator.path()));
    QSignalSpy spy(&tablet, &EasyTablet::positionArrived);
    simulator.send("garbage 500\nwait 50\npress 5 6\n");
    while ((spy.isEmpty() || tablet.easyPosition() != PressPoint{5, 6}) && spy.wait(kWaitMs)) {
    }
    EXPECT_EQ(tablet.easyPosition(), (PressPoint{5, 6}));
    EXPECT_TRUE(tablet.isOpen());
}

TEST_F(TabletSimulatorTest, AVanishedSimulatorIsReportedAndClosesThePort) {
    auto simulator = std::make_unique<SimulatorProcess>();
    const QString path = simulator->path();
    ASSERT_TRUE(startAndWait(tablet, path));
    QSignalSpy positions(&tablet, &EasyTablet::positionArrived);
    simulator->send("press 3 4\n");
    ASSERT_TRUE(positions.wait(kWaitMs));
    QSignalSpy status(&tablet, &EasyTablet::statusMessage);

    simulator->kill();

    ASSERT_TRUE(status.wait(kWaitMs));
    EXPECT_EQ(status[0][0].toString(), portLostText(Language::Catalan, path));
    EXPECT_FALSE(tablet.isOpen());
    EXPECT_EQ(tablet.easyPosition(), (PressPoint{0, 0}));

    simulator.reset();
    QString message;
    EXPECT_FALSE(startAndWait(tablet, path, &message));
    EXPECT_TRUE(message.contains(path)) << message.toStdString();
}

TEST_F(TabletSimulatorTest, AWrongIdentificationIsRefused) {
    SimulatorProcess simulator({QStringLiteral("--id"), QStringLiteral("Acme pad")});
    QString message;
    EXPECT_FALSE(startAndWait(tablet, simulator.path(), &message));
    EXPECT_EQ(message, notTabletText(Language::Catalan, simulator.path()));
    EXPECT_EQ(tablet.packetMode(), 0);
}

TEST_F(TabletSimulatorTest, AutoDetectFindsTheSimulatorAmongCandidates) {
    SimulatorProcess mute({QStringLiteral("--mute")});
    SimulatorProcess simulator;
    tablet.setProbeCandidates({QStringLiteral("/dev/no-such-port"), mute.path(), simulator.path()});
    QString message;
    ASSERT_TRUE(startAndWait(tablet, QString(), &message)) << message.toStdString();
    EXPECT_EQ(tablet.portPath(), simulator.path());

    QSignalSpy spy(&tablet, &EasyTablet::positionArrived);
    simulator.send("press 7 8\n");
    ASSERT_TRUE(spy.wait(kWaitMs));
    EXPECT_EQ(tablet.easyPosition(), (PressPoint{7, 8}));
}

} // namespace
} // namespace mervak
