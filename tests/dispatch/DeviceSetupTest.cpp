#include "dispatch/DeviceSetup.h"

#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// Corners pressed (device readings) and the horizontal mirror chosen over a file
// whose [GENIUS] says MirallY=1; then the model's calibration as read back:
// "X0 Y0 X1 Y1 MirallX MirallY", the corners 0 when none are stored.
TEST(DeviceSetupTest, CornersAndMirrorsAreWrittenToTheModelsSection) {
    const struct {
        const char* model;
        QList<QPoint> presses;
        bool mirrorX;
        const char* stored;
    } rows[] = {
        {"GENIUS", {{312, 208}, {15890, 9480}}, false, "312 208 15890 9480 0 1"},
        {"GENIUS",
         {{312, 208}, {312, 9480}, {15890, 208}, {900, 700}},
         true,
         "312 208 900 700 1 1"},
        {"GENIUS", {{312, 208}}, true, "0 0 0 0 1 1"},
        {"TRUSTMASTER", {{255, 255}, {0, 0}}, false, "255 255 0 0 0 0"},
        {"DANCEPAD", {{0, 0}, {255, 255}}, true, "0 0 0 0 0 0"},
    };
    for (const auto& row : rows) {
        QTemporaryDir home;
        const QString path = home.filePath("MERVAK.INI");
        test::writeAll(path, "[GENIUS]\r\nMirallY=1\r\n");
        DeviceSetup setup(PrivateProfile(path), row.model);
        setup.startCalibration();
        for (const QPoint& press : row.presses)
            setup.cornerPressed(press);
        setup.setMirror(row.mirrorX, setup.mirrorY());
        Settings settings;
        settings.model = row.model;
        ASSERT_TRUE(setup.save(settings, nullptr));
        const SheetFrame f = readSheetFrame(PrivateProfile(path), row.model, {});
        EXPECT_EQ(QStringLiteral("%1 %2 %3 %4 %5 %6")
                      .arg(f.left)
                      .arg(f.top)
                      .arg(f.right)
                      .arg(f.bottom)
                      .arg(f.mirrorX)
                      .arg(f.mirrorY),
                  row.stored)
            << row.model << row.presses.size();
    }
}

} // namespace
} // namespace mervak
