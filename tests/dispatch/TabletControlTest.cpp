#include "dispatch/TabletControl.h"

#include "support/FakeClipboard.h"
#include "support/FakeSerialLink.h"
#include "support/TestAreas.h"
#include "support/TestFiles.h"

#include <QSignalSpy>
#include <QTemporaryDir>
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

namespace mervak {
namespace {

// A Model=VISTAL start opens the configured video or says why not; with no
// corners stored the mapping reports an unstable structure.
TEST(VistalTabletTest, StartsTheTrackerOrSaysWhyNot) {
    QTemporaryDir home;
    const QString video = home.filePath(QStringLiteral("grey.y4m"));
    test::writeAll(video,
                   "YUV4MPEG2 W640 H480 F30:1 C420jpeg\nFRAME\n" + QByteArray(460800, '\x80'));
    const struct {
        QString camera;
        bool present;
        QString caption;
    } rows[] = {{video, true, QStringLiteral("Tauleta activa a USB")},
                {home.filePath(QStringLiteral("none.y4m")), false, Message(Language::Catalan, 72)}};
    for (const auto& row : rows) {
        test::writeAll(home.filePath(QStringLiteral("MERVAK.INI")),
                       "[Mervak]\r\nModel=VISTAL\r\n[WEBCAM]\r\nCamera=" + row.camera.toUtf8());
        Session session(home.path());
        session.settings = readSettings(PrivateProfile(settingsFilePath(home.path())));
        test::FakeClipboard clipboard;
        PressDispatcher dispatcher{
            session, clipboard, {[](const QString&) {}, [] { return false; }, [] {}}};
        test::FakeSerialBus bus;
        TabletControl tablet{session, bus.factory(), dispatcher};
        QSignalSpy notices(&tablet, &TabletControl::noticeRequested);
        tablet.start();
        EXPECT_EQ(session.DevicePresent, row.present);
        EXPECT_EQ(tablet.caption(), row.caption);
        EXPECT_EQ(tablet.isTrackerPolling(), row.present);
        EXPECT_EQ(notices.size(), row.present ? 1 : 0);
    }
}

TEST(VistalTabletTest, WithADwellTimeAnAreaFiresOnlyOnceTheMarkerRests) {
    QTemporaryDir home;
    const PrivateProfile ini(settingsFilePath(home.path()));
    Corners identity;
    identity.x = {0, 0, 640, 640, 0};
    identity.y = {0, 0, 0, 480, 480};
    ASSERT_TRUE(WriteCorners(ini, identity, QDate(2024, 1, 1)));
    PerspectiveMapping mapping(ini, [](const QString&) {});
    ASSERT_TRUE(mapping.BuildMapping());
    Session session(home.path());
    session.tmpl.AppendArea(test::makeArea(10, 10, 50, 50, 1));
    int16_t cameraX = 0;
    int64_t now = 0;
    VistalDeviceSource source(
        [&](int16_t& x, int16_t& y) {
            x = cameraX;
            y = 120;
            return 1;
        },
        mapping, session, [&] { return now; });
    source.setDwellMs(300);
    const struct {
        int16_t cameraX; // 160 is cell 30, on the Area; 480 is cell 90, off it
        int64_t now;
        bool press;
    } rows[] = {{160, 0, false},  {160, 299, false}, {160, 300, true},
                {480, 350, true}, {160, 400, false}, {160, 700, true}};
    for (const auto& row : rows) {
        cameraX = row.cameraX;
        now = row.now;
        source.poll();
        EXPECT_EQ(source.read().status, row.press) << row.cameraX << " at " << row.now;
    }
}

} // namespace
} // namespace mervak
