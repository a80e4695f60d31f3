#include "platform/Settings.h"

#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

Settings readFrom(const QByteArray& contents) {
    QTemporaryDir dir;
    const QString path = dir.filePath("MERVAK.INI");
    test::writeAll(path, contents);
    return readSettings(PrivateProfile(path));
}

TEST(Settings, MissingFileGivesTheDefaults) {
    QTemporaryDir dir;
    const Settings s = readSettings(PrivateProfile(dir.filePath("MERVAK.INI")));
    EXPECT_EQ(s.language, Language::Catalan);
    EXPECT_EQ(s.model, "DIL");
    EXPECT_EQ(s.portIndex, PortIndex::AutoDetect);
    EXPECT_EQ(s.retardPort, 0);
    EXPECT_EQ(s.interval, 50);
    EXPECT_TRUE(s.soundSetting);
}

TEST(Settings, AppliesTheReadingRules) {
    struct Case {
        const char* name;
        QByteArray line;
        std::function<bool(const Settings&)> holds;
    };
    const Case cases[] = {
        {"Spanish", "IDIOMA=ESPA\xd1OL", [](auto& s) { return s.language == Language::Spanish; }},
        {"unknown language", "IDIOMA=ANGLES",
         [](auto& s) { return s.language == Language::Catalan; }},
        {"lower-case language", "Idioma=espa\xf1ol",
         [](auto& s) { return s.language == Language::Catalan; }},
        {"model trimmed, upper", "Model= easy ", [](auto& s) { return s.model == "EASY"; }},
        {"COM1", "Port=COM1", [](auto& s) { return s.portIndex == 3; }},
        {"COM4", "Port=COM4", [](auto& s) { return s.portIndex == 6; }},
        {"LPT2", "Port=LPT2", [](auto& s) { return s.portIndex == 2; }},
        {"COM5", "Port=COM5", [](auto& s) { return s.portIndex == 0 && s.portDevice.isEmpty(); }},
        {"lower com1", "Port=com1", [](auto& s) { return s.portIndex == 3; }},
        {"device path", "Port=/dev/ttyUSB0",
         [](auto& s) { return s.portIndex == 0 && s.portDevice == "/dev/ttyUSB0"; }},
        {"long device path",
         "Port=/dev/serial/by-id/usb-Prolific_Technology_Inc._USB-Serial-if00-port0",
         [](auto& s) { return s.portDevice.endsWith("-if00-port0"); }},
        {"retard 32-bit", "RetardPort=100000", [](auto& s) { return s.retardPort == 100000; }},
        {"interval 200", "Interval=200", [](auto& s) { return s.interval == 50; }},
        {"interval 1", "Interval=1", [](auto& s) { return s.interval == 50; }},
        {"interval 0", "Interval=0", [](auto& s) { return s.interval == 0; }},
        {"interval text", "Interval=abc", [](auto& s) { return s.interval == 0; }},
        {"So=no", "So=no", [](auto& s) { return !s.soundSetting; }},
        {"So=NO", "So=NO", [](auto& s) { return !s.soundSetting; }},
        {"So=si", "So=si", [](auto& s) { return s.soundSetting; }},
        {"So=Si", "So=Si", [](auto& s) { return s.soundSetting; }},
    };
    for (const auto& c : cases)
        EXPECT_TRUE(c.holds(readFrom("[Mervak]\r\n" + c.line + "\r\n"))) << c.name;
}

TEST(Settings, WritesBackOnlyItsFourKeys) {
    QTemporaryDir dir;
    const QString path = dir.filePath("MERVAK.INI");
    test::writeAll(path,
                   "[Mervak]\r\nIDIOMA=ESPA\xd1OL\r\nModel=EASY\r\nPort=COM5\r\nInterval=200\r\n");
    const PrivateProfile ini(path);
    Settings s = readSettings(ini);
    ASSERT_TRUE(writeSettings(ini, s));
    EXPECT_EQ(test::readAll(path), QByteArray("[Mervak]\r\nIDIOMA=ESPA\xd1OL\r\nModel=EASY\r\n"
                                              "Port=AUTODETECT\r\nInterval=50\r\nRetardPort=0\r\n"
                                              "So=Si\r\n"));
}

TEST(Settings, PortValuesAndDevices) {
    struct Case {
        int16_t index;
        QString device;
        QString setting;
        QString serial;
        QString caption;
    };
    const Case cases[] = {
        {0, "", "AUTODETECT", "", "????"},
        {1, "", "LPT1", "", "LPT1"},
        {3, "", "COM1", "/dev/ttyS0", "COM1"},
        {6, "", "COM4", "/dev/ttyS3", "COM4"},
        {7, "", "AUTODETECT", "", "USB"},
        {0, "/dev/ttyUSB0", "/dev/ttyUSB0", "/dev/ttyUSB0", "????"},
    };
    for (const auto& c : cases) {
        Settings s;
        s.portIndex = c.index;
        s.portDevice = c.device;
        EXPECT_EQ(portSettingValue(s), c.setting) << c.index;
        EXPECT_EQ(serialDevicePath(s), c.serial) << c.index;
        EXPECT_EQ(portCaption(c.index), c.caption) << c.index;
    }
}

TEST(Settings, LanguageChoiceIsStoredAsIdioma) {
    QTemporaryDir dir;
    const QString path = dir.filePath("MERVAK.INI");
    test::writeAll(path, "[Mervak]\r\nIDIOMA=CATALA\r\n");
    const PrivateProfile ini(path);
    ASSERT_TRUE(writeLanguage(ini, Language::Spanish));
    EXPECT_EQ(readSettings(ini).language, Language::Spanish);
    EXPECT_EQ(test::readAll(path), QByteArray("[Mervak]\r\nIDIOMA=ESPA\xd1OL\r\n"));
}

} // namespace
} // namespace mervak
