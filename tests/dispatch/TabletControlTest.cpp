#include "dispatch/TabletControl.h"

#include "support/FakeClipboard.h"
#include "support/FakeSerialLink.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace mervak {
namespace {

class TabletControlTest : public ::testing::Test {
protected:
    Session session{QString()};
    test::FakeClipboard clipboard;
    PressDispatcher dispatcher{
        session, clipboard, {[](const QString&) {}, [] { return false; }, [] {}}};
    test::FakeSerialBus bus;
    TabletControl tablet{session, bus.factory(), dispatcher};
};

TEST_F(TabletControlTest, AFailedStartKeepsSayingSo) {
    session.settings.model = "CAP";
    QSignalSpy finished(&tablet, &TabletControl::startFinished);
    tablet.start();
    ASSERT_EQ(finished.size(), 1);
    EXPECT_FALSE(finished.first().first().toBool());
    tablet.SetTabletActive(true);
    EXPECT_FALSE(tablet.isActive());
    EXPECT_EQ(tablet.caption(), Message(Language::Catalan, 113));
    session.settings.language = Language::Spanish;
    tablet.retranslate();
    EXPECT_EQ(tablet.caption(), Message(Language::Spanish, 113));
}

TEST_F(TabletControlTest, TheVirtualTabletIsPolledUnlessTheIntervalIsZero) {
    for (const int16_t interval : {50, 0}) {
        session.settings.interval = interval;
        tablet.start();
        tablet.setVirtualTabletShown(true);
        EXPECT_EQ(tablet.isPolling(), interval != 0) << interval;
        tablet.setVirtualTabletShown(false);
        EXPECT_FALSE(tablet.isPolling());
    }
}

} // namespace
} // namespace mervak
