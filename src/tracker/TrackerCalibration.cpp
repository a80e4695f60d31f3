#include "tracker/TrackerCalibration.h"

#include "platform/Language.h"

#include <cstdlib>

namespace mervak {

namespace {

constexpr int16_t kDefaultWidth = 638;
constexpr int16_t kDefaultHeight = 478;

bool within(CameraPoint a, CameraPoint b, int pixels) {
    return std::abs(a.x - b.x) <= pixels && std::abs(a.y - b.y) <= pixels;
}

} // namespace

TrackerCalibration::TrackerCalibration(PrivateProfile ini, PerspectiveMapping& mapping)
    : ini_(std::move(ini)), mapping_(mapping) {}

void TrackerCalibration::startCorners(Entry entry, int64_t nowMs) {
    mode_ = Mode::Calibrating;
    entry_ = entry;
    corners_ = {};
    taken_ = 0;
    hasResting_ = false;
    restingSince_ = nowMs;
}

void TrackerCalibration::setTesting(bool on) {
    mode_ = on ? Mode::Testing : Mode::None;
}

QString TrackerCalibration::modeText() const {
    switch (mode_) {
    case Mode::Calibrating:
        return QStringLiteral("calibrar");
    case Mode::Testing:
        return QStringLiteral("test");
    case Mode::None:
        break;
    }
    return {};
}

QString TrackerCalibration::progress() const {
    return QString(taken_, u'1') + QString(4 - taken_, u'0');
}

// The rest starts anew whenever the marker moves or is lost; the corner is taken
// once it has lasted, unless the marker still rests on the previous corner.
std::optional<CameraPoint> TrackerCalibration::tick(int status, CameraPoint point, int64_t nowMs,
                                                    double holdSeconds) {
    if (status != 1 || mode_ == Mode::None) {
        hasResting_ = false;
        return std::nullopt;
    }
    if (mode_ != Mode::Calibrating || taken_ == 4)
        return point;
    if (!hasResting_ || !within(point, resting_, kSteadyPixels)) {
        resting_ = point;
        restingSince_ = nowMs;
        hasResting_ = true;
    }
    const CameraPoint previous{corners_.x[taken_], corners_.y[taken_]};
    const bool awayFromPrevious = taken_ == 0 || !within(point, previous, kCornerSpacingPixels);
    if (awayFromPrevious && double(nowMs - restingSince_) >= holdSeconds * 1000)
        takeCorner(point, nowMs);
    return point;
}

bool TrackerCalibration::click(CameraPoint point, int64_t nowMs) {
    if (mode_ != Mode::Calibrating || taken_ == 4)
        return false;
    takeCorner(point, nowMs);
    return true;
}

// Each point taken goes to [lectures] as "puntN=x,y".
void TrackerCalibration::takeCorner(CameraPoint point, int64_t nowMs) {
    ++taken_;
    corners_.x[taken_] = point.x;
    corners_.y[taken_] = point.y;
    hasResting_ = false;
    restingSince_ = nowMs;
    logError_.clear();
    ini_.writeString(QStringLiteral("lectures"), QStringLiteral("punt%1").arg(taken_),
                     QStringLiteral("%1,%2").arg(point.x).arg(point.y), &logError_);
}

int TrackerCalibration::confirmationMessage() const {
    return entry_ == Entry::CalibrateButton ? Msg::CalibrationDone : Msg::CalibrationCorrect;
}

bool TrackerCalibration::confirm(bool accepted, const QDate& today, QString* error) {
    if (!awaitsConfirmation())
        return false;
    if (!accepted) {
        corners_ = {};
        taken_ = 0;
        hasResting_ = false;
        return false;
    }
    mode_ = Mode::None;
    if (!WriteCorners(ini_, corners_, today, error))
        return false;
    return mapping_.BuildMapping();
}

bool TrackerCalibration::storeDefaultCorners(const QDate& today, QString* error) {
    Corners defaults;
    defaults.x = {0, 0, kDefaultWidth, kDefaultWidth, 0};
    defaults.y = {0, 0, 0, kDefaultHeight, kDefaultHeight};
    if (!WriteCorners(ini_, defaults, today, error))
        return false;
    return mapping_.BuildMapping();
}

void TrackerCalibration::setHorizontalMirror(bool on) {
    InversionFlags flags = mapping_.inversion();
    flags.horizontal = on ? 1 : 0;
    mapping_.setInversion(flags);
}

void TrackerCalibration::setVerticalMirror(bool on) {
    InversionFlags flags = mapping_.inversion();
    flags.vertical = on ? 1 : 0;
    mapping_.setInversion(flags);
}

bool TrackerCalibration::unload(QString* error) {
    mode_ = Mode::None;
    if (!WriteInversionFlags(ini_, mapping_.inversion(), error))
        return false;
    return mapping_.BuildMapping();
}

} // namespace mervak
