#include "devices/EasyTablet.h"

#include "devices/CommEvent.h"
#include "devices/TabletMessages.h"
#include "support/FakeSerialLink.h"

#include <QSignalSpy>
#include <QTimer>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::FakeSerialBus;
using test::FakeSerialDevice;

const QString kPort = QStringLiteral("/dev/ttyFAKE0");

const QByteArrayList kWholeDialogue = {"@Z0\r",   "@I\r",    "@S5=0\r", "@S6=1\r",
                                       "@S8=1\r", "@S9=0\r", "@X\r"};

void answerLikeATablet(FakeSerialDevice& device) {
    device.replies["@Z0\r"] = {"#0\r"};
    device.replies["@I\r"] = {"Anastasis/Smack EASY\r"};
    for (const char* command : {"@S5=0\r", "@S6=1\r", "@S8=1\r", "@S9=0\r"})
        device.replies[command] = {"#0\r"};
}

struct Outcome {
    bool finished = false;
    bool ok = false;
    QString message;
};

Outcome startAndWait(EasyTablet& tablet, const QString& port) {
    QSignalSpy spy(&tablet, &EasyTablet::startFinished);
    tablet.start(port);
    if (spy.isEmpty() && !spy.wait(10000))
        return {};
    return {true, spy[0][0].toBool(), spy[0][1].toString()};
}

class EasyTabletTest : public ::testing::Test {
protected:
    EasyTabletTest() { qRegisterMetaType<PressPoint>(); }

    // A tablet already streaming on kPort.
    test::FakeSerialLink* streaming() {
        answerLikeATablet(bus.device(kPort));
        const Outcome started = startAndWait(tablet, kPort);
        EXPECT_TRUE(started.ok) << started.message.toStdString();
        return bus.openLink(kPort);
    }

    FakeSerialBus bus;
    EasyTablet tablet{bus.factory()};
};

TEST_F(EasyTabletTest, SetUpDialogue) {
    enum Message { None, NoAnswer, WrongAnswer, NotTablet };
    struct Case {
        const char* name;
        QMap<QByteArray, QByteArrayList> replies; // replaces the good tablet's
        bool ok;
        qsizetype commandsSent;
        Message message;
        bool emitsSent = true;
    };
    const Case cases[] = {
        {"good tablet", {}, true, 7, None},
        {"good tablet without send events", {}, true, 7, None, false},
        {"identification in capitals", {{"@I\r", {"ANASTASIS/SMACK V2\r"}}}, true, 7, None},
        {"reply in three reads", {{"@Z0\r", {"#", "0", "\r"}}}, true, 7, None},
        {"acknowledgement without carriage return waits out", {{"@Z0\r", {"#0"}}}, true, 7, None},
        {"settings refused or unanswered go on",
         {{"@S6=1\r", {"#1\r"}}, {"@S9=0\r", {}}},
         true,
         7,
         None},
        {"wrong acknowledgement", {{"@Z0\r", {"#1\r"}}}, false, 1, WrongAnswer},
        {"no acknowledgement", {{"@Z0\r", {}}}, false, 1, NoAnswer},
        {"wrong identification", {{"@I\r", {"Acme pad 3000\r"}}}, false, 2, NotTablet},
        {"no identification", {{"@I\r", {}}}, false, 2, NoAnswer},
        {"identification cut short", {{"@I\r", {"Anastasis/Sm\r"}}}, false, 2, NotTablet},
    };
    for (const Case& c : cases) {
        FakeSerialBus bus;
        FakeSerialDevice& device = bus.device(kPort);
        answerLikeATablet(device);
        device.emitsSent = c.emitsSent;
        for (auto it = c.replies.cbegin(); it != c.replies.cend(); ++it)
            device.replies[it.key()] = it.value();
        EasyTablet tablet(bus.factory());

        const Outcome outcome = startAndWait(tablet, kPort);

        ASSERT_TRUE(outcome.finished) << c.name;
        EXPECT_EQ(outcome.ok, c.ok) << c.name;
        EXPECT_EQ(device.written, kWholeDialogue.mid(0, c.commandsSent)) << c.name;
        EXPECT_EQ(tablet.packetMode(), c.ok ? 1 : 0) << c.name;
        EXPECT_TRUE(tablet.isOpen()) << c.name; // a failed dialogue leaves the port open
        const QString expected[] = {QString(), noAnswerText(Language::Catalan, kPort),
                                    wrongAnswerText(Language::Catalan, kPort),
                                    notTabletText(Language::Catalan, kPort)};
        EXPECT_EQ(outcome.message, expected[c.message]) << c.name;
    }
}

TEST_F(EasyTabletTest, AFailedDialogueNeverEntersTheStream) {
    answerLikeATablet(bus.device(kPort));
    bus.device(kPort).replies["@I\r"] = {"Acme\r"};
    ASSERT_FALSE(startAndWait(tablet, kPort).ok);
    QSignalSpy positions(&tablet, &EasyTablet::positionArrived);
    bus.openLink(kPort)->deliver("^AB");
    EXPECT_TRUE(positions.isEmpty());
    EXPECT_EQ(tablet.easyPosition(), (PressPoint{0, 0}));
}

TEST_F(EasyTabletTest, TheReplyWaitKeepsTheEventLoopRunning) {
    bus.device(kPort); // a device that never answers
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] { ++ticks; });
    ticker.start(10);
    const Outcome outcome = startAndWait(tablet, kPort);
    ASSERT_TRUE(outcome.finished);
    EXPECT_FALSE(outcome.ok);
    EXPECT_GT(ticks, 0);
}

TEST_F(EasyTabletTest, PortsThatCannotOpenAreNamedInTheMessage) {
    struct Case {
        const char* name;
        std::optional<OpenFailure> failure; // none: no such device at all
        OpenFailure reported;
    };
    const Case cases[] = {
        {"missing", std::nullopt, OpenFailure::NotFound},
        {"no permission", OpenFailure::NoPermission, OpenFailure::NoPermission},
        {"busy", OpenFailure::Busy, OpenFailure::Busy},
        {"not a serial port", OpenFailure::NotSerial, OpenFailure::NotSerial},
    };
    for (const Case& c : cases) {
        FakeSerialBus bus;
        if (c.failure)
            bus.device(kPort).openFailure = *c.failure;
        EasyTablet tablet(bus.factory());
        const Outcome outcome = startAndWait(tablet, kPort);
        EXPECT_FALSE(outcome.ok) << c.name;
        EXPECT_EQ(outcome.message, openFailedText(Language::Catalan, kPort, c.reported)) << c.name;
        EXPECT_TRUE(outcome.message.contains(kPort)) << c.name;
        EXPECT_FALSE(tablet.isOpen()) << c.name;
    }
}

TEST_F(EasyTabletTest, StreamedReadsFillTheSlotAndSignalAtOnce) {
    struct Case {
        const char* name;
        QByteArray read;
        std::optional<PressPoint> signalled;
        PressPoint slot;
    };
    const Case cases[] = {
        {"press", "^AB", PressPoint{65, 66}, {65, 66}},
        {"cut short: slot unchanged", "^C", std::nullopt, {65, 66}},
        {"strays before the packet", "\x01\x02^(*", PressPoint{40, 42}, {40, 42}},
        {"out of range is no press", "^x\x05", PressPoint{0, 0}, {0, 0}},
        {"two packets: the first", "^\x0A\x0B^\x0C\x0D", PressPoint{10, 11}, {10, 11}},
    };
    test::FakeSerialLink* link = streaming();
    ASSERT_NE(link, nullptr);
    for (const Case& c : cases) {
        QSignalSpy positions(&tablet, &EasyTablet::positionArrived);
        link->deliver(c.read);
        ASSERT_EQ(positions.size(), c.signalled ? 1 : 0) << c.name;
        if (c.signalled) {
            EXPECT_EQ(positions[0][0].value<PressPoint>(), *c.signalled) << c.name;
        }
        EXPECT_EQ(tablet.easyPosition(), c.slot) << c.name;
    }
    EXPECT_EQ(tablet.lastReceive().rxCopy, QString::fromLatin1("^\x0A\x0B^\x0C\x0D"));
}

TEST_F(EasyTabletTest, LineEventsShowStatusOrBeep) {
    struct Case {
        int code;
        int16_t portState;
        bool status;
        bool stillOpen;
    };
    const Case cases[] = {
        {CommEvent::CtsChange, 0, true, true},      {CommEvent::Framing, 0, true, true},
        {CommEvent::Parity, 2, true, true},         {CommEvent::Break, 2, true, true},
        {CommEvent::Overrun, 0, false, true},       {CommEvent::TransmitFull, 1, false, true},
        {CommEvent::PortSettings, 0, false, true},  {CommEvent::CtsTimeout, 2, false, false},
        {CommEvent::PortSettings, 2, false, false},
    };
    for (const Case& c : cases) {
        FakeSerialBus bus;
        answerLikeATablet(bus.device(kPort));
        EasyTablet tablet(bus.factory());
        ASSERT_TRUE(startAndWait(tablet, kPort).ok);
        bus.openLink(kPort)->deliver("^AB");
        tablet.setPortState(c.portState);
        QSignalSpy status(&tablet, &EasyTablet::statusMessage);
        QSignalSpy beeps(&tablet, &EasyTablet::beepRequested);
        QSignalSpy closed(&tablet, &EasyTablet::portClosed);

        bus.openLink(kPort)->raise(c.code);

        const QString text = commEventInfo(c.code).text;
        EXPECT_EQ(status.size(), c.status ? 1 : 0) << c.code;
        EXPECT_EQ(beeps.size(), c.status ? 0 : 1) << c.code;
        const QSignalSpy& spoken = c.status ? status : beeps;
        if (!spoken.isEmpty()) {
            EXPECT_EQ(spoken[0][0].toString(), text) << c.code;
        }
        EXPECT_EQ(tablet.isOpen(), c.stillOpen) << c.code;
        EXPECT_EQ(closed.size(), c.stillOpen ? 0 : 1) << c.code;
        const PressPoint slot = c.stillOpen ? PressPoint{65, 66} : PressPoint{0, 0};
        EXPECT_EQ(tablet.easyPosition(), slot) << c.code;
    }
}

TEST_F(EasyTabletTest, ALostPortIsToldInPlainWordsAndClosed) {
    test::FakeSerialLink* link = streaming();
    ASSERT_NE(link, nullptr);
    link->deliver("^AB");
    QSignalSpy status(&tablet, &EasyTablet::statusMessage);
    QSignalSpy closed(&tablet, &EasyTablet::portClosed);

    link->loseDevice();

    ASSERT_EQ(status.size(), 1);
    EXPECT_EQ(status[0][0].toString(),
              QString::fromUtf8("S'ha perdut la connexió amb la tauleta (/dev/ttyFAKE0)"));
    EXPECT_EQ(closed.size(), 1);
    EXPECT_FALSE(tablet.isOpen());
    EXPECT_EQ(tablet.easyPosition(), (PressPoint{0, 0}));
}

TEST_F(EasyTabletTest, APortLostDuringSetUpFailsTheStart) {
    bus.device(kPort); // silent, so the dialogue waits at "@Z0"
    tablet.setLanguage(Language::Spanish);
    QSignalSpy finished(&tablet, &EasyTablet::startFinished);
    tablet.start(kPort);
    bus.openLink(kPort)->loseDevice();
    ASSERT_EQ(finished.size(), 1);
    EXPECT_FALSE(finished[0][0].toBool());
    EXPECT_EQ(finished[0][1].toString(),
              QString::fromUtf8("Se ha perdido la conexión con la tableta (/dev/ttyFAKE0)"));
    EXPECT_FALSE(finished.wait(kMinReplyWaitMs * 2)); // the abandoned wait stays quiet
}

TEST_F(EasyTabletTest, AutoDetectStartsOnTheFirstPortThatAnswers) {
    const QString mute = QStringLiteral("/dev/ttyFAKE1");
    const QString refuses = QStringLiteral("/dev/ttyFAKE2");
    bus.device(mute);
    bus.device(refuses).replies["@Z0\r"] = {"#1\r"};
    answerLikeATablet(bus.device(kPort));
    tablet.setProbeCandidates({QStringLiteral("/dev/missing"), mute, refuses, kPort});

    const Outcome outcome = startAndWait(tablet, QString());

    EXPECT_TRUE(outcome.ok) << outcome.message.toStdString();
    EXPECT_EQ(tablet.portPath(), kPort);
    EXPECT_EQ(bus.openedPaths(), (QStringList{mute, refuses, kPort, kPort}));
    EXPECT_EQ(bus.device(mute).written, QByteArrayList{"@Z0\r"});
    EXPECT_EQ(bus.device(kPort).written.size(), kWholeDialogue.size() + 1);
    EXPECT_FALSE(bus.openLink(mute));
}

TEST_F(EasyTabletTest, AutoDetectWithoutATabletSaysHowManyPortsWereTried) {
    bus.device(QStringLiteral("/dev/ttyFAKE1"));
    tablet.setProbeCandidates({QStringLiteral("/dev/missing"), QStringLiteral("/dev/ttyFAKE1")});
    const Outcome outcome = startAndWait(tablet, QString());
    EXPECT_FALSE(outcome.ok);
    EXPECT_EQ(outcome.message, noTabletFoundText(Language::Catalan, 2));

    tablet.setProbeCandidates({});
    EXPECT_EQ(startAndWait(tablet, QString()).message, noTabletFoundText(Language::Catalan, 0));
}

TEST_F(EasyTabletTest, ARestartAbandonsTheFirstStart) {
    const QString other = QStringLiteral("/dev/ttyFAKE1");
    bus.device(other); // silent
    answerLikeATablet(bus.device(kPort));
    QSignalSpy finished(&tablet, &EasyTablet::startFinished);
    tablet.start(other);
    tablet.start(kPort);
    ASSERT_TRUE(finished.wait(10000));
    EXPECT_FALSE(finished.wait(kMinReplyWaitMs * 2));
    ASSERT_EQ(finished.size(), 1);
    EXPECT_TRUE(finished[0][0].toBool());
    EXPECT_FALSE(bus.openLink(other));
}

} // namespace
} // namespace mervak
