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
    const struct {
        const char* section;
        const char* key;
        int buffer;
        QString expected;
    } cases[] = {
        {"Mervak", "Idioma", 40, QStringLiteral("ESPAÑOL")},
        {"MERVAK", "MODEL", 40, "easy"},
        {"Mervak", "Port", 3, "CO"},
        {"Mervak", "Port", 1, ""},
        {"Mervak", "Interval", 40, "default"},
        {"Unknown Section", "interval", 40, "999"},
        {"Mervak", "no equals sign here", 40, "default"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ini.readString(c.section, c.key, "default", c.buffer), c.expected)
            << c.section << "/" << c.key;
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

} // namespace
} // namespace mervak
