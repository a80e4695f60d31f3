#include "devices/EasyTablet.h"

#include "devices/CommEvent.h"
#include "devices/EasyPacket.h"
#include "devices/ReplyWait.h"
#include "devices/TabletMessages.h"
#include "support/FakeSerialLink.h"

#include <QSignalSpy>
#include <gtest/gtest.h>
#include <limits>

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
        EXPECT_TRUE(tablet.isOpen()) << c.name; // a failed dialogue leaves the port open
        const QString expected[] = {QString(), noAnswerText(Language::Catalan, kPort),
                                    wrongAnswerText(Language::Catalan, kPort),
                                    notTabletText(Language::Catalan, kPort)};
        EXPECT_EQ(outcome.message, expected[c.message]) << c.name;
        QSignalSpy positions(&tablet, &EasyTablet::positionArrived);
        bus.openLink(kPort)->deliver("^AB");
        EXPECT_EQ(positions.size(), c.ok ? 1 : 0) << c.name << ": only a good dialogue streams";
    }
}

TEST_F(EasyTabletTest, APortThatCannotOpenIsNamedInTheMessage) {
    bus.device(kPort).openFailure = OpenFailure::Busy;
    const Outcome outcome = startAndWait(tablet, kPort);
    EXPECT_FALSE(outcome.ok);
    EXPECT_EQ(outcome.message, openFailedText(Language::Catalan, kPort, OpenFailure::Busy));
    EXPECT_TRUE(outcome.message.contains(kPort));
    EXPECT_FALSE(tablet.isOpen());
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
        {"out of range is no press", "^x\x05", PressPoint{0, 0}, {0, 0}},
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
        {CommEvent::Parity, 2, true, true},         {CommEvent::TransmitFull, 1, false, true},
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

TEST_F(EasyTabletTest, APortLostDuringSetUpFailsTheStart) {
    bus.device(kPort); // silent, so the dialogue waits at "@Z0"
    tablet.setLanguage(Language::Spanish);
    QSignalSpy finished(&tablet, &EasyTablet::startFinished);
    tablet.start(kPort);
    bus.openLink(kPort)->loseDevice();
    ASSERT_EQ(finished.size(), 1);
    EXPECT_FALSE(finished[0][0].toBool());
    EXPECT_EQ(finished[0][1].toString(),
              QString::fromUtf8("Se ha perdido la conexión con la tableta (/dev/ttyFAKE0). "
                                "Compruebe el cable y haga «Test de la tauleta»."));
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

    tablet.setProbeCandidates({QStringLiteral("/dev/missing"), mute});
    EXPECT_EQ(startAndWait(tablet, QString()).message, noTabletFoundText(Language::Catalan, 2));
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

TEST(EasyPacket, DecodesOnlyTheFirstWholePacketOfARead) {
    const std::tuple<QByteArray, int16_t, std::optional<PressPoint>> cases[] = {
        // read, marker, position
        {"xy^AB", 3, PressPoint{65, 66}},
        {"^A", 1, std::nullopt},
        {"", 0, std::nullopt},
        {"^AB^CD", 1, PressPoint{65, 66}},
        {"^^^", 1, PressPoint{94, 94}},
        {"^x\n", 1, PressPoint{0, 0}}, // "x" is 120
        {"^\nx", 1, PressPoint{0, 0}},
        {"^ww", 1, PressPoint{119, 119}},
        {QByteArray("^\0\0", 3), 1, PressPoint{0, 0}},
        {"^\x80\x05", 1, PressPoint{0, 0}},
    };
    for (const auto& [read, marker, position] : cases) {
        const EasyReceive r = decodeEasyRead(read);
        EXPECT_EQ(r.rxMarker, marker) << read.toHex().toStdString();
        EXPECT_EQ(r.position, position) << read.toHex().toStdString();
    }
}

TEST(EasyPacket, ACaretPastThe16BitMarkerDropsTheRead) {
    const EasyReceive flood = decodeEasyRead(QByteArray(40000, 'a') + "^AB");
    EXPECT_EQ(flood.rxMarker, 0);
    EXPECT_FALSE(flood.position);
    const EasyReceive justFits = decodeEasyRead(QByteArray(32766, 'a') + "^AB");
    EXPECT_EQ(justFits.rxMarker, 32767);
    EXPECT_EQ(justFits.position, (PressPoint{65, 66}));
}

TEST(ReplyWait, WaitsTheDelayButNeverUnderTheMinimumNorOverTheMaximum) {
    constexpr int32_t kLowest = std::numeric_limits<int32_t>::min();
    constexpr int32_t kHighest = std::numeric_limits<int32_t>::max();
    const std::pair<int32_t, int> cases[] = {
        {0, kMinReplyWaitMs}, {kLowest, kMinReplyWaitMs}, {1, 1000},
        {60, 60000},          {61, kMaxReplyWaitMs},      {kHighest, kMaxReplyWaitMs},
    };
    for (const auto& [seconds, ms] : cases)
        EXPECT_EQ(replyWaitMs(seconds), ms) << seconds;
}

TEST(ReplyWait, EndsAtTheFirstCarriageReturnOrRunsOutWithWhatCameButNoMore) {
    ReplyWait wait;
    QSignalSpy finished(&wait, &ReplyWait::finished);
    wait.begin(60000);
    wait.append(QStringLiteral("#"));
    EXPECT_TRUE(finished.isEmpty());
    wait.append(QStringLiteral("0\rrest"));
    ASSERT_EQ(finished.size(), 1);
    EXPECT_EQ(finished[0][0].toString(), QStringLiteral("#0\rrest"));
    wait.append(QStringLiteral("late\r"));
    EXPECT_EQ(finished.size(), 1);

    wait.begin(1);
    for (int i = 0; i < 100; ++i)
        wait.append(QString(1000, u'x'));
    ASSERT_TRUE(finished.wait(5000));
    EXPECT_EQ(finished[1][0].toString(), QString(kMaxReplyLength, u'x'));
}

} // namespace
} // namespace mervak
