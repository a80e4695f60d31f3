#include "scanning/ScanSettings.h"

#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(ScanSettingsTest, ReadsTheSectionAndKeepsDefaultsForBadValues) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("MERVAK.INI"));
    test::writeAll(path, "[Exploracio]\r\nMode=Files\r\nCommutadors=3\r\nAvancar=space\r\n"
                         "Seleccionar=boto1\r\nInterval=2000\r\nPausa=-5\r\nVoltes=x\r\n"
                         "AccioLlarga=inicial\r\nVeu=1\r\n");
    const ScanSettings read = readScanSettings(PrivateProfile(path));
    ScanSettings expected;
    expected.mode = ScanSettings::Mode::Rows;
    expected.advance = QStringLiteral("space");
    expected.select = QStringLiteral("boto1");
    expected.intervalMs = 2000;
    expected.longPress = ScanSettings::LongPress::InitialLevel;
    expected.speak = true;
    EXPECT_EQ(read, expected);

    ScanSettings changed = expected;
    changed.acceptanceMs = 250;
    ASSERT_TRUE(writeScanSettings(PrivateProfile(path), changed));
    EXPECT_EQ(readScanSettings(PrivateProfile(path)), changed);
}

TEST(ScanSettingsTest, ATemplatesScanningOverridesAllButTheSwitches) {
    ScanSettings sheet;
    sheet.mode = ScanSettings::Mode::Items;
    sheet.intervalMs = 3000;
    sheet.advance = QStringLiteral("F1");
    sheet.switches = 2;
    ScanSettings user;
    user.advance = QStringLiteral("space");
    const ScanSettings merged = withTemplateScan(user, templateScanText(sheet));
    EXPECT_EQ(merged.mode, ScanSettings::Mode::Items);
    EXPECT_EQ(merged.intervalMs, 3000);
    EXPECT_EQ(merged.advance, QStringLiteral("space"));
    EXPECT_EQ(merged.switches, 1);
    EXPECT_EQ(withTemplateScan(user, QStringLiteral("Avancar=F1;Mode")), user);
    EXPECT_EQ(withTemplateScan(user, QString()), user);
}

} // namespace
} // namespace mervak
