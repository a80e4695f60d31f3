#include "platform/Settings.h"

#include "platform/PrivateProfile.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

const QByteArray kHandWritten = "; Mervak settings, edited by hand\r\n"
                                "[Mervak]\r\n"
                                "IDIOMA = ESPA\xd1OL \r\n"
                                "model=\"easy\"\r\n"
                                "Port='COM2'\r\n"
                                "\r\n"
                                "RetardPort= 12abc\r\n"
                                "no equals sign here\r\n"
                                "[WEBCAM]\r\n"
                                "web_x0=0x1F\r\n"
                                "[Unknown Section]\r\n"
                                "Interval=999\r\n";

class PrivateProfileTest : public ::testing::Test {
protected:
    void SetUp() override { test::writeAll(path(), kHandWritten); }
    QString path() const { return dir.filePath("MERVAK.INI"); }
    QTemporaryDir dir;
};

TEST_F(PrivateProfileTest, ReadsWithTheClassicRules) {
    const PrivateProfile ini(path());
    // Section, key, buffer size and the value read, "default" when not found.
    const std::tuple<const char*, const char*, int, QString> cases[] = {
        {"Mervak", "Idioma", 40, QStringLiteral("ESPAÑOL")},
        {"MERVAK", "MODEL", 40, "easy"},
        {"Mervak", "Port", 3, "CO"},
        {"Mervak", "Port", 1, ""},
        {"Mervak", "Interval", 40, "default"},
        {"Unknown Section", "interval", 40, "999"},
        {"Mervak", "no equals sign here", 40, "default"},
    };
    for (const auto& [section, key, buffer, expected] : cases)
        EXPECT_EQ(ini.readString(section, key, "default", buffer), expected) << section << key;
    EXPECT_EQ(ini.readInteger("Mervak", "RetardPort", 7), 12);
    EXPECT_EQ(ini.readInteger("WEBCAM", "web_x0", 7), 31);
    EXPECT_EQ(ini.readInteger("Mervak", "Model", 7), 0);
    EXPECT_EQ(ini.readInteger("Mervak", "Missing", 7), 7);
}

// A changed key keeps its place, a new one goes after its section's last key.
TEST_F(PrivateProfileTest, WritingKeepsEveryOtherLine) {
    const PrivateProfile ini(path());
    ASSERT_TRUE(ini.writeString("Mervak", "Idioma", "CATALA"));
    ASSERT_TRUE(ini.writeString("webcam", "web_y0", "5"));
    ASSERT_TRUE(ini.writeString("Nova", "Clau", "x"));
    QByteArray expected = kHandWritten;
    expected.replace("IDIOMA = ESPA\xd1OL ", "IDIOMA=CATALA");
    expected.replace("web_x0=0x1F\r\n", "web_x0=0x1F\r\nweb_y0=5\r\n");
    expected.append("[Nova]\r\nClau=x\r\n");
    EXPECT_EQ(test::readAll(path()), expected);
}

TEST(PrivateProfileFile, AMissingFileIsCreatedOnWrite) {
    QTemporaryDir dir;
    const PrivateProfile ini(dir.filePath("new.ini"));
    EXPECT_EQ(ini.readString("Mervak", "Port", "AUTODETECT", 40), "AUTODETECT");
    ASSERT_TRUE(ini.writeStrings("Mervak", {{"Port", "COM1"}, {"So", "Si"}}));
    EXPECT_EQ(test::readAll(dir.filePath("new.ini")),
              QByteArray("[Mervak]\r\nPort=COM1\r\nSo=Si\r\n"));
}

TEST(PrivateProfileFile, KeepsUnixLineEndsAndUtf8) {
    QTemporaryDir dir;
    const QString path = dir.filePath("u.ini");
    test::writeAll(path, "[Mervak]\nIdioma=ESPA\xc3\x91OL\n");
    const PrivateProfile ini(path);
    EXPECT_EQ(ini.readString("Mervak", "IDIOMA", "", 40), QStringLiteral("ESPAÑOL"));
    ASSERT_TRUE(ini.writeString("Mervak", "So", "No"));
    EXPECT_EQ(test::readAll(path), QByteArray("[Mervak]\nIdioma=ESPA\xc3\x91OL\nSo=No\n"));
}

TEST(PrivateProfileFile, GarbageReadsAsDefaults) {
    QTemporaryDir dir;
    const QString path = dir.filePath("g.ini");
    QByteArray garbage = "[Mervak]\r\nPort\r\n=\r\n";
    for (int i = 0; i < 4096; ++i)
        garbage.append(static_cast<char>((i * 7919) % 256));
    test::writeAll(path, garbage);
    const PrivateProfile ini(path);
    EXPECT_EQ(ini.readString("Mervak", "Port", "AUTODETECT", 40), "AUTODETECT");
    EXPECT_EQ(ini.readInteger("Mervak", "Interval", 100), 100);
}

// The settings a MERVAK.INI with this line in section [Mervak] gives, as
// "language model port device retard interval sound closeword".
QString readFrom(const QByteArray& line) {
    QTemporaryDir dir;
    test::writeAll(dir.filePath("MERVAK.INI"), "[Mervak]\r\n" + line + "\r\n");
    const Settings s = readSettings(PrivateProfile(dir.filePath("MERVAK.INI")));
    return QStringList{languageSettingValue(s.language), s.model,
                       QString::number(s.portIndex),     s.portDevice,
                       QString::number(s.retardPort),    QString::number(s.interval),
                       s.soundSetting ? "Si" : "No",     s.closeWord}
        .join(u' ');
}

TEST(Settings, AppliesTheReadingRules) {
    const std::pair<QByteArray, const char*> cases[] = {
        {"", "CATALA DIL 0  0 50 Si mervak"},
        {"IDIOMA=ESPA\xd1OL", "ESPAÑOL DIL 0  0 50 Si mervak"},
        {"IDIOMA=espa\xf1ol", "CATALA DIL 0  0 50 Si mervak"},
        {"Model= easy ", "CATALA EASY 0  0 50 Si mervak"},
        {"Port=com1", "CATALA DIL 3  0 50 Si mervak"},
        {"Port=COM4", "CATALA DIL 6  0 50 Si mervak"},
        {"Port=LPT2", "CATALA DIL 2  0 50 Si mervak"},
        {"Port=COM5", "CATALA DIL 0  0 50 Si mervak"},
        {"Port=/dev/ttyUSB0", "CATALA DIL 0 /dev/ttyUSB0 0 50 Si mervak"},
        {"Port=/dev/serial/by-id/usb-Prolific_Technology_Inc._USB-Serial-if00-port0",
         "CATALA DIL 0 /dev/serial/by-id/usb-Prolific_Technology_Inc._USB-Serial-if00-port0 0 50 "
         "Si mervak"},
        {"RetardPort=100000", "CATALA DIL 0  100000 50 Si mervak"},
        {"Interval=200", "CATALA DIL 0  0 50 Si mervak"},
        {"Interval=0", "CATALA DIL 0  0 0 Si mervak"},
        {"Interval=abc", "CATALA DIL 0  0 0 Si mervak"},
        {"So=no", "CATALA DIL 0  0 50 No mervak"},
        {"So=si", "CATALA DIL 0  0 50 Si mervak"},
        {"ParaulaTancar= Sol ", "CATALA DIL 0  0 50 Si Sol"},
        {"ParaulaTancar=", "CATALA DIL 0  0 50 Si mervak"},
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

// Port index, device path and sound, as the tablet's test writes them over a
// file that says "model=easy", whatever model was tested.
TEST(Settings, DeviceSettingsAreWrittenBack) {
    const std::tuple<QString, int16_t, QString, bool, QByteArray> cases[] = {
        {"EASY", 4, "", true, "model=easy\r\nPort=COM2\r\nRetardPort=3\r\nInterval=0\r\nSo=Si"},
        {"DIL", 7, "", false,
         "model=easy\r\nPort=AUTODETECT\r\nRetardPort=3\r\nInterval=0\r\nSo=No"},
        {"GENIUS", 0, "/dev/input/event5", true,
         "model=easy\r\nPort=/dev/input/event5\r\nRetardPort=3\r\nInterval=0\r\nSo=Si"},
    };
    for (const auto& [model, index, device, sound, written] : cases) {
        QTemporaryDir dir;
        const QString path = dir.filePath("MERVAK.INI");
        test::writeAll(path, "[Mervak]\r\nmodel=easy\r\n");
        Settings s;
        s.model = model;
        s.portIndex = index;
        s.portDevice = device;
        s.retardPort = 3;
        s.interval = 0;
        s.soundSetting = sound;
        ASSERT_TRUE(writeDeviceSettings(PrivateProfile(path), s));
        EXPECT_EQ(test::readAll(path), "[Mervak]\r\n" + written + "\r\n") << model;
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

TEST(Settings, ReopeningTheLastTemplateIsOnUnlessNo) {
    const std::pair<QByteArray, bool> cases[] = {{"", true},
                                                 {"ObrirDarrera=no", false},
                                                 {"ObrirDarrera=Si", true},
                                                 {"ObrirDarrera=x", true}};
    for (const auto& [line, reopen] : cases) {
        QTemporaryDir dir;
        test::writeAll(dir.filePath("MERVAK.INI"), "[Mervak]\r\n" + line + "\r\n");
        const PrivateProfile ini(dir.filePath("MERVAK.INI"));
        EXPECT_EQ(readSettings(ini).reopenLastTemplate, reopen) << line.data();
        ASSERT_TRUE(writeReopenLastTemplate(ini, !reopen));
        EXPECT_EQ(readSettings(ini).reopenLastTemplate, !reopen) << line.data();
    }
}

} // namespace
} // namespace mervak
