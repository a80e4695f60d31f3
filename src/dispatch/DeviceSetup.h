#pragma once

#include "devices/SheetFrame.h"
#include "platform/PrivateProfile.h"
#include "platform/Settings.h"

#include <QList>
#include <QPoint>
#include <QString>
#include <optional>

namespace mervak {

// One entry of the port list: what the teacher reads, and the "Port" value.
struct PortChoice {
    QString label;
    QString port; // empty: auto-detect
};

// What the tablet's test and calibration dialog decides, without its widgets:
// the ports to offer, the two corners taken, the mirror flags, and what is
// written back to MERVAK.INI.
class DeviceSetup {
public:
    enum class Step { Idle, TopLeft, BottomRight };

    DeviceSetup(PrivateProfile file, const QString& model);

    // The serial ports and the input devices of this machine, by their names.
    static QList<PortChoice> ports();
    // Absolute devices (tablets, touch panels, joysticks) map their readings
    // through two corners; a dance pad's buttons and the serial tablet do not.
    static bool canCalibrate(const QString& model);

    // Another model: its stored mirror flags, and no corners taken.
    void chooseModel(const QString& model);
    const QString& model() const { return model_; }

    void startCalibration();
    // A touch at this device reading, taken for the corner the step asks for.
    // The bottom-right corner must differ from the top-left in both axes.
    Step cornerPressed(QPoint reading);
    Step step() const { return step_; }
    bool calibrated() const { return corners_.has_value(); }

    void setMirror(bool mirrorX, bool mirrorY);
    bool mirrorX() const { return mirrorX_; }
    bool mirrorY() const { return mirrorY_; }

    // The device settings, then the model's section: the corners once both are
    // taken, else the mirror flags alone.
    bool save(const Settings& settings, QString* error) const;

private:
    PrivateProfile file_;
    QString model_;
    Step step_ = Step::Idle;
    QPoint topLeft_;
    std::optional<SheetFrame> corners_;
    bool mirrorX_ = false;
    bool mirrorY_ = false;
};

} // namespace mervak
