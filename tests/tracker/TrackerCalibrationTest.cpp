#include "tracker/TrackerCalibration.h"

#include "platform/Language.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <vector>

namespace mervak {
namespace {

class TrackerCalibrationTest : public ::testing::Test {
protected:
    QTemporaryDir folder;
    PrivateProfile ini{folder.filePath(QStringLiteral("MERVAK.INI"))};
    PerspectiveMapping mapping{ini, [](const QString&) {}};
    TrackerCalibration calibration{ini, mapping};

    QString value(const char* section, const char* key) const {
        return ini.readString(section, key, QStringLiteral("-"), 512);
    }
};

// Readings of a marker held one second per corner ('t' a tick, 'c' a click).
TEST_F(TrackerCalibrationTest, WhichReadingsTakeACorner) {
    struct Event {
        char kind;
        int status;
        int16_t x, y;
        int64_t ms;
    };
    const struct Row {
        const char* what;
        std::vector<Event> events;
        const char* progress;
    } rows[] = {
        {"rests a second", {{'t', 1, 100, 100, 0}, {'t', 1, 104, 97, 1000}}, "1000"},
        {"lost between",
         {{'t', 1, 100, 100, 0}, {'t', 2, 0, 0, 500}, {'t', 1, 100, 100, 900}},
         "0000"},
        {"moving",
         {{'t', 1, 100, 100, 0}, {'t', 1, 110, 100, 600}, {'t', 1, 120, 100, 1200}},
         "0000"},
        {"still on the previous corner",
         {{'t', 1, 100, 100, 0}, {'t', 1, 100, 100, 1000}, {'t', 1, 110, 110, 3000}},
         "1000"},
        {"clicked",
         {{'c', 0, 1, 2, 0}, {'c', 0, 3, 4, 0}, {'c', 0, 5, 6, 0}, {'c', 0, 7, 8, 0}},
         "1111"},
    };
    for (const Row& row : rows) {
        calibration.startCorners(TrackerCalibration::Entry::CalibrateButton, 0);
        for (const Event& event : row.events) {
            if (event.kind == 't')
                calibration.tick(event.status, {event.x, event.y}, event.ms, 1.0);
            else
                calibration.click({event.x, event.y}, event.ms);
        }
        EXPECT_EQ(calibration.progress(), row.progress) << row.what;
    }
}

TEST_F(TrackerCalibrationTest, WhatIsStored) {
    const auto takeFour = [this](TrackerCalibration::Entry entry) {
        calibration.startCorners(entry, 0);
        for (int16_t k = 1; k <= 4; ++k)
            calibration.click({int16_t(10 * k), int16_t(20 * k)}, 0);
    };
    takeFour(TrackerCalibration::Entry::AlarmCheckBox);
    EXPECT_EQ(calibration.confirmationMessage(), Msg::CalibrationCorrect);
    EXPECT_FALSE(calibration.confirm(false, QDate(2024, 5, 6)));
    EXPECT_EQ(calibration.progress(), "0000");
    EXPECT_EQ(value("WEBCAM", "x1"), "-");

    takeFour(TrackerCalibration::Entry::CalibrateButton);
    EXPECT_EQ(calibration.confirmationMessage(), Msg::CalibrationDone);
    EXPECT_TRUE(calibration.confirm(true, QDate(2024, 5, 6)));
    EXPECT_EQ(value("WEBCAM", "y4"), "80");
    EXPECT_EQ(value("lectures", "punt3"), "30,60");

    ASSERT_TRUE(calibration.storeDefaultCorners(QDate(2024, 5, 6)));
    EXPECT_EQ(value("WEBCAM", "x3") + value("WEBCAM", "y3"), "638478");

    ASSERT_TRUE(calibration.unload());
    EXPECT_EQ(value("WEBCAM", "web_inv_h") + value("WEBCAM", "web_inv_v"), "00");
}

} // namespace
} // namespace mervak
