#include "platform/Settings.h"

#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// The settings a MERVAK.INI with this line in section [Mervak] gives, as
// "language model port device retard interval sound".
QString readFrom(const QByteArray& line) {
    QTemporaryDir dir;
    test::writeAll(dir.filePath("MERVAK.INI"), "[Mervak]\r\n" + line + "\r\n");
    const Settings s = readSettings(PrivateProfile(dir.filePath("MERVAK.INI")));
    return QStringList{languageSettingValue(s.language), s.model,
                       QString::number(s.portIndex),     s.portDevice,
                       QString::number(s.retardPort),    QString::number(s.interval),
                       s.soundSetting ? "Si" : "No"}
        .join(u' ');
}

TEST(Settings, AppliesTheReadingRules) {
    const std::pair<QByteArray, const char*> cases[] = {
        {"", "CATALA DIL 0  0 50 Si"},
        {"IDIOMA=ESPA\xd1OL", "ESPAÑOL DIL 0  0 50 Si"},
        {"Model= easy ", "CATALA EASY 0  0 50 Si"},
        {"Port=com1", "CATALA DIL 3  0 50 Si"},
        {"Port=COM4", "CATALA DIL 6  0 50 Si"},
        {"Port=LPT2", "CATALA DIL 2  0 50 Si"},
        {"Port=COM5", "CATALA DIL 0  0 50 Si"},
        {"Port=/dev/ttyUSB0", "CATALA DIL 0 /dev/ttyUSB0 0 50 Si"},
        {"Port=/dev/serial/by-id/usb-Prolific_Technology_Inc._USB-Serial-if00-port0",
         "CATALA DIL 0 /dev/serial/by-id/usb-Prolific_Technology_Inc._USB-Serial-if00-port0 0 50 "
         "Si"},
        {"RetardPort=100000", "CATALA DIL 0  100000 50 Si"},
        {"Interval=200", "CATALA DIL 0  0 50 Si"},
        {"Interval=0", "CATALA DIL 0  0 0 Si"},
        {"Interval=abc", "CATALA DIL 0  0 0 Si"},
        {"So=no", "CATALA DIL 0  0 50 No"},
        {"So=si", "CATALA DIL 0  0 50 Si"},
    };
    for (const auto& [line, settings] : cases)
        EXPECT_EQ(readFrom(line), QString::fromUtf8(settings)) << line.data();
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
