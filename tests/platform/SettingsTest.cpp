#include "platform/Settings.h"

#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace mervak {
namespace {

Settings readFrom(const QByteArray& contents) {
    QTemporaryDir dir;
    const QString path = dir.filePath("MERVAK.INI");
    test::writeAll(path, contents);
    return readSettings(PrivateProfile(path));
}

TEST(Settings, AppliesTheReadingRules) {
    const struct {
        QByteArray line;
        std::function<bool(const Settings&)> holds;
    } cases[] = {
        {"",
         [](auto& s) {
             return s.language == Language::Catalan && s.model == "DIL" && s.portIndex == 0 &&
                    s.retardPort == 0 && s.interval == 50 && s.soundSetting;
         }},
        {"IDIOMA=ESPA\xd1OL", [](auto& s) { return s.language == Language::Spanish; }},
        {"Model= easy ", [](auto& s) { return s.model == "EASY"; }},
        {"Port=com1", [](auto& s) { return s.portIndex == 3; }},
        {"Port=COM4", [](auto& s) { return s.portIndex == 6; }},
        {"Port=LPT2", [](auto& s) { return s.portIndex == 2; }},
        {"Port=COM5", [](auto& s) { return s.portIndex == 0 && s.portDevice.isEmpty(); }},
        {"Port=/dev/ttyUSB0",
         [](auto& s) { return s.portIndex == 0 && s.portDevice == "/dev/ttyUSB0"; }},
        {"Port=/dev/serial/by-id/usb-Prolific_Technology_Inc._USB-Serial-if00-port0",
         [](auto& s) { return s.portDevice.endsWith("-if00-port0"); }},
        {"RetardPort=100000", [](auto& s) { return s.retardPort == 100000; }},
        {"Interval=200", [](auto& s) { return s.interval == 50; }},
        {"Interval=0", [](auto& s) { return s.interval == 0; }},
        {"Interval=abc", [](auto& s) { return s.interval == 0; }},
        {"So=no", [](auto& s) { return !s.soundSetting; }},
        {"So=si", [](auto& s) { return s.soundSetting; }},
    };
    for (const auto& c : cases)
        EXPECT_TRUE(c.holds(readFrom("[Mervak]\r\n" + c.line + "\r\n"))) << c.line.data();
}

// Port index or device path, then the serial device and the status caption.
TEST(Settings, PortDevicesAndCaptions) {
    const std::tuple<int16_t, QString, QString, QString> cases[] = {
        {0, "", "", "????"},
        {1, "", "", "LPT1"},
        {3, "", "/dev/ttyS0", "COM1"},
        {6, "", "/dev/ttyS3", "COM4"},
        {7, "", "", "USB"},
        {0, "/dev/ttyUSB0", "/dev/ttyUSB0", "????"},
    };
    for (const auto& [index, device, serial, caption] : cases) {
        Settings s;
        s.portIndex = index;
        s.portDevice = device;
        EXPECT_EQ(serialDevicePath(s), serial) << index;
        EXPECT_EQ(portCaption(index), caption) << index;
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
