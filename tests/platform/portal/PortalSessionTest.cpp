#include "platform/portal/PortalSession.h"

#include "FakePortal.h"
#include "platform/portal/PortalInput.h"
#include "support/Waiting.h"

#include <QDBusConnection>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace mervak {
namespace {

class PortalSessionTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (bus.address().isEmpty())
            GTEST_SKIP() << "dbus-daemon did not start";
        portal = std::make_unique<test::FakePortal>(bus.address());
        ASSERT_TRUE(portal->registered());
    }
    void TearDown() override {
        session.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("mervak"));
    }

    PortalSession& start(const QString& token) {
        session = std::make_unique<PortalSession>(
            QDBusConnection::connectToBus(bus.address(), QStringLiteral("mervak")), token,
            [this](const QString& kept) { keptTokens.append(kept); });
        session->start();
        EXPECT_TRUE(test::waitFor(
            [this] { return session->state() != PortalSession::State::Starting; }, 5000));
        return *session;
    }

    // The calls after the session's start, each with its input arguments.
    QList<QVariantList> notifications() const {
        QList<QVariantList> found;
        for (const test::FakePortal::Call& call : portal->calls())
            if (call.method.startsWith(u"Notify"))
                found.append(QVariantList{call.method} + call.arguments.mid(2));
        return found;
    }

    test::PrivateBus bus;
    std::unique_ptr<test::FakePortal> portal;
    std::unique_ptr<PortalSession> session;
    QStringList keptTokens;
};

// The consent asked for, keyboard and pointer kept until revoked, the monitor for
// the pointer, and the new token kept in place of the old.
TEST_F(PortalSessionTest, AsksOnceAndKeepsTheRestoreToken) {
    portal->setRestoreToken(QStringLiteral("token-2"));
    EXPECT_EQ(start(QStringLiteral("token-1")).state(), PortalSession::State::Started);
    EXPECT_EQ(portal->methods(),
              QStringList({"CreateSession", "SelectDevices", "SelectSources", "Start"}));
    const QVariantMap devices = portal->options(QStringLiteral("SelectDevices"));
    EXPECT_EQ(devices.value("types").toUInt(), PortalSession::kKeyboard | PortalSession::kPointer);
    EXPECT_EQ(devices.value("persist_mode").toUInt(), PortalSession::kPersistUntilRevoked);
    EXPECT_EQ(devices.value("restore_token").toString(), "token-1");
    EXPECT_EQ(portal->options(QStringLiteral("SelectSources")).value("types").toUInt(),
              PortalSession::kMonitor);
    EXPECT_EQ(keptTokens, QStringList{"token-2"});
    EXPECT_EQ(session->streamSize(), QSize(1280, 720));
}

// Keys go by keysym, modifiers around them; the pointer moves over the shared
// monitor's stream and clicks by evdev button.
TEST_F(PortalSessionTest, TypesByKeysymAndClicksOverTheStream) {
    PortalSession& started = start({});
    EXPECT_FALSE(portal->options(QStringLiteral("SelectDevices")).contains("restore_token"));
    PortalKeyboard keyboard(started);
    PortalPointer pointer(started);
    const Modifiers control{false, true, false};
    ASSERT_EQ(keyboard.type({{Key::Character, U'é', {}}, {Key::Character, U'c', control}}),
              std::nullopt);
    pointer.send(PointerFlag::Move | PointerFlag::Absolute | PointerFlag::LeftDown, 32768, 0);
    const int x = 640;
    const auto key = [](std::uint32_t symbol, uint pressed) {
        return QVariantList{"NotifyKeyboardKeysym", int(symbol), pressed};
    };
    const QList<QVariantList> expected = {
        key(XKB_KEY_eacute, 1),
        key(XKB_KEY_eacute, 0),
        key(XKB_KEY_Control_L, 1),
        key(XKB_KEY_c, 1),
        key(XKB_KEY_c, 0),
        key(XKB_KEY_Control_L, 0),
        {"NotifyPointerMotionAbsolute", test::FakePortal::kStreamNode, double(x), 0.0},
        {"NotifyPointerButton", BTN_LEFT, 1u},
    };
    ASSERT_TRUE(test::waitFor([&] { return notifications().size() >= expected.size(); }, 5000));
    EXPECT_EQ(notifications(), expected);
    EXPECT_EQ(pointer.position(), QPoint(x, 0));
}

// The teacher says no: nothing is typed, the keyboard says why, no token is kept.
TEST_F(PortalSessionTest, ARefusalTypesNothingAndSaysWhy) {
    portal->setStartResponse(1);
    portal->setRestoreToken(QStringLiteral("never"));
    PortalSession& refused = start(QStringLiteral("old"));
    EXPECT_EQ(refused.state(), PortalSession::State::Refused);
    PortalKeyboard keyboard(refused);
    const std::optional<TypingError> error = keyboard.type({{Key::Character, U'a', {}}});
    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason, TypingError::Reason::RemoteControlRefused);
    bool flushed = false;
    keyboard.flush([&flushed] { flushed = true; });
    EXPECT_TRUE(test::waitFor([&flushed] { return flushed; }, 5000)) << "waiting never hangs";
    EXPECT_TRUE(keptTokens.isEmpty());
    EXPECT_TRUE(notifications().isEmpty());
}

} // namespace
} // namespace mervak
