#pragma once

#include "platform/PrivateProfile.h"
#include "tracker/PerspectiveMapping.h"

#include <QDate>
#include <QString>
#include <cstdint>
#include <optional>

namespace mervak {

// A point of the 640 x 480 camera frame.
struct CameraPoint {
    int16_t x = 0;
    int16_t y = 0;
    bool operator==(const CameraPoint&) const = default;
};

// What the calibration form does, without its widgets: taking the camera points
// of the sheet's four corners (from the resting marker or from clicks on the
// picture), storing them once confirmed, the default corners, test mode and the
// mirror flags, and the log of the points taken in [lectures].
class TrackerCalibration {
public:
    enum class Mode { None, Calibrating, Testing };
    // Which control started the corner taking; it decides the confirming message.
    enum class Entry { CalibrateButton, AlarmCheckBox };

    // The marker must keep this still to be taken, and a corner this far from the
    // previous one: a marker resting on a corner is not taken for the next as well.
    static constexpr int kSteadyPixels = 6;
    static constexpr int kCornerSpacingPixels = 30;

    TrackerCalibration(PrivateProfile ini, PerspectiveMapping& mapping);

    void startCorners(Entry entry, int64_t nowMs);
    void setTesting(bool on);
    void stop() { mode_ = Mode::None; }

    Mode mode() const { return mode_; }
    // "calibrar" while taking corners, "test" in test mode.
    QString modeText() const;
    // One character per corner, 1 when taken: "0000" .. "1111".
    QString progress() const;
    int cornersTaken() const { return taken_; }
    const Corners& corners() const { return corners_; }

    // One timer tick with the tracker's reading (status 1: a marker at `point`).
    // While calibrating, a marker that rested `holdSeconds` in one place is the
    // next corner. The point to show, if any.
    std::optional<CameraPoint> tick(int status, CameraPoint point, int64_t nowMs,
                                    double holdSeconds);
    // A click on the picture while calibrating takes the next corner at once.
    bool click(CameraPoint point, int64_t nowMs);

    // All four taken: the form asks with this message (74 or 105).
    bool awaitsConfirmation() const { return mode_ == Mode::Calibrating && taken_ == 4; }
    int confirmationMessage() const;
    // Accepted: stores the corners with `today` and rebuilds the mapping. Declined:
    // the corners are taken again from the first.
    bool confirm(bool accepted, const QDate& today, QString* error = nullptr);

    // (0, 0), (638, 0), (638, 478), (0, 478): two pixels short of the frame, kept so.
    bool storeDefaultCorners(const QDate& today, QString* error = nullptr);

    void setHorizontalMirror(bool on);
    void setVerticalMirror(bool on);
    InversionFlags mirror() const { return mapping_.inversion(); }

    // The form closes: the mirror flags are written whether changed or not, and
    // the mapping rebuilt with them.
    bool unload(QString* error = nullptr);

    // Why the last point could not be logged; empty when it was.
    const QString& logError() const { return logError_; }

private:
    void takeCorner(CameraPoint point, int64_t nowMs);

    PrivateProfile ini_;
    PerspectiveMapping& mapping_;
    Mode mode_ = Mode::None;
    Entry entry_ = Entry::CalibrateButton;
    Corners corners_;
    int taken_ = 0;
    CameraPoint resting_;
    int64_t restingSince_ = 0;
    bool hasResting_ = false;
    QString logError_;
};

} // namespace mervak
