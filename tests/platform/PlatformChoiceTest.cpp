#include "platform/PlatformChoice.h"

#include "platform/PrivateProfile.h"
#include "platform/Settings.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using Kind = PlatformKind;

TEST(PlatformChoiceTest, CommandLineThenSettingThenSession) {
    struct Case {
        Kind option;
        Kind setting;
        const char* waylandDisplay;
        const char* sessionType;
        Kind expected;
    };
    const Case cases[] = {
        {Kind::Automatic, Kind::Automatic, "", "x11", Kind::X11},
        {Kind::Automatic, Kind::Automatic, "", "", Kind::X11},
        {Kind::Automatic, Kind::Automatic, "wayland-0", "", Kind::Wayland},
        {Kind::Automatic, Kind::Automatic, "", "Wayland", Kind::Wayland},
        {Kind::Automatic, Kind::Portal, "wayland-0", "wayland", Kind::Portal},
        {Kind::X11, Kind::Portal, "wayland-0", "wayland", Kind::X11},
        {Kind::Wayland, Kind::Automatic, "", "x11", Kind::Wayland},
    };
    for (const Case& c : cases)
        EXPECT_EQ(choosePlatform(c.option, c.setting, QString::fromLatin1(c.waylandDisplay),
                                 QString::fromLatin1(c.sessionType)),
                  c.expected)
            << c.waylandDisplay << " " << c.sessionType;
    EXPECT_EQ(platformKindFromName(QStringLiteral(" Portal ")), Kind::Portal);
    EXPECT_EQ(platformKindFromName(QStringLiteral("AUTO")), Kind::Automatic);
    EXPECT_EQ(platformKindFromName(QStringLiteral("gnome")), std::nullopt);
}

// MERVAK.INI names the backend and keeps the portal's token; a name it does not
// know leaves the choice to the session.
TEST(PlatformChoiceTest, SettingsKeepTheBackendAndThePortalToken) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("MERVAK.INI"));
    test::writeAll(path, "[Mervak]\r\nPlataforma=Wayland\r\n");
    const PrivateProfile file(path);
    EXPECT_EQ(readSettings(file).platform, Kind::Wayland);
    EXPECT_TRUE(readSettings(file).portalRestoreToken.isEmpty());
    const QString token = QStringLiteral("0f3c9a7e-5b1d-4e7a-9c2b-8d6e4f1a2b3c");
    ASSERT_TRUE(writePortalRestoreToken(file, token));
    EXPECT_EQ(readSettings(file).portalRestoreToken, token);
    test::writeAll(path, "[Mervak]\r\nPlataforma=mutter\r\n");
    EXPECT_EQ(readSettings(file).platform, Kind::Automatic);
}

} // namespace
} // namespace mervak
