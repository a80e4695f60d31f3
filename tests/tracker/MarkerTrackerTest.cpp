#include "camscene/CameraScene.h"
#include "support/TestFiles.h"
#include "tracker/ColourTracker.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <thread>

namespace mervak {
namespace {

constexpr MarkerColour kBlue{30, 60, 200};

// Marker places on the sheet, in units of the upright 640 x 480 rectangle: the
// middle, near each corner, and on a printed grid line.
const cv::Point2d kPlaces[] = {{320, 240}, {30, 25},  {610, 30},
                               {600, 450}, {40, 455}, {213.3, 160}};

TEST(MarkerTrackerTest, CentroidOnSyntheticFrames) {
    struct Row {
        const char* name;
        double noise;
        double brightness;
        bool occluded; // a hand over the marker's left half
        MarkerColour marker;
        MarkerColour tracked;
        double maxError; // pixels; negative: no marker may be found
    } rows[] = {
        {"clean", 0, 1, false, {}, {}, 0.5},
        {"noisy", 12, 1, false, {}, {}, 1.0},
        {"dark room", 4, 0.55, false, {}, {}, 0.5},
        {"bright room", 4, 1.25, false, {}, {}, 0.5},
        {"half hidden", 4, 1, true, {}, {}, 5.0},
        {"picked colour", 4, 1, false, kBlue, kBlue, 0.5},
        {"other colour", 4, 1, false, kBlue, {}, -1},
    };
    for (const Row& row : rows) {
        scene::Scene scene;
        scene.noiseSigma = row.noise;
        scene.brightness = row.brightness;
        scene.colour = row.marker;
        MarkerTracker tracker(row.tracked);
        for (const cv::Point2d& place : kPlaces) {
            const cv::Point2d truth = scene::toCamera(scene, place);
            std::optional<cv::Rect> hand;
            if (row.occluded)
                hand = cv::Rect(int(truth.x) - 20, int(truth.y) - 20, 20, 40);
            const auto found = tracker.find(scene::renderFrame(scene, truth, hand));
            if (row.maxError < 0) {
                EXPECT_FALSE(found) << row.name;
                continue;
            }
            ASSERT_TRUE(found) << row.name << " at " << place.x << "," << place.y;
            EXPECT_LE(cv::norm(*found - truth), row.maxError)
                << row.name << " at " << place.x << "," << place.y;
        }
        // No marker at all: the sheet, the table and the noise are never one.
        EXPECT_FALSE(tracker.find(scene::renderFrame(scene, std::nullopt))) << row.name;
    }
}

// The file plays once; after its last frame there is no marker.
TEST(MarkerTrackerTest, AVideoFilePlaysOnceThenReportsNoMarker) {
    QTemporaryDir folder;
    const QString video = folder.filePath(QStringLiteral("marker.y4m"));
    const scene::Scene scene;
    {
        scene::Y4mWriter writer(video, 200);
        for (int i = 0; i < 5; ++i)
            writer.write(scene::renderFrame(scene, cv::Point2d(300, 200)));
    }
    test::writeAll(folder.filePath(QStringLiteral("text.y4m")), "not a video\n");
    ColourTracker tracker;
    const struct {
        QString camera;
        ColourTracker::Start expected;
    } starts[] = {{folder.filePath(QStringLiteral("text.y4m")), ColourTracker::Start::Unreadable},
                  {folder.filePath(QStringLiteral("missing.y4m")), ColourTracker::Start::NoCamera},
                  {video, ColourTracker::Start::Started}};
    for (const auto& start : starts) {
        TrackerSettings settings;
        settings.camera = start.camera;
        tracker.configure(settings);
        EXPECT_EQ(tracker.start(), start.expected) << start.camera.toStdString();
    }
    EXPECT_EQ(tracker.start(), ColourTracker::Start::AlreadyRunning);
    while (tracker.isRunning())
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(tracker.latest().frame, 5u);
    EXPECT_EQ(tracker.latestFrame().size(), cv::Size(640, 480));
    int16_t x = -1;
    int16_t y = -1;
    EXPECT_EQ(tracker.VSTObtenirPosicio(x, y), 0);
}

} // namespace
} // namespace mervak
