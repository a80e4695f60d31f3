#include "dispatch/DeviceSetup.h"

#include "devices/InputCapabilities.h"
#include "devices/LibevdevSource.h"
#include "devices/QtSerialLink.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace mervak {

namespace {

// The name of an input device that can serve some model; one that cannot be
// read yet is still offered, by its file name, so that the test can say why.
std::optional<QString> inputDeviceName(const QString& path) {
    OpenResult result;
    const auto capabilities = LibevdevSource::probe(path, &result);
    if (!capabilities)
        return result.failure == OpenFailure::NoPermission
                   ? std::optional(QFileInfo(path).fileName())
                   : std::nullopt;
    if (servesAs(*capabilities, InputKind::Pointing) ||
        servesAs(*capabilities, InputKind::DancePad))
        return capabilities->name;
    return std::nullopt;
}

// The first four serial ports go by the names MERVAK.INI has always given them.
PortChoice serialChoice(const QString& path) {
    static const QRegularExpression classic(QStringLiteral("^/dev/ttyS([0-3])$"));
    const QRegularExpressionMatch match = classic.match(path);
    if (!match.hasMatch())
        return {path, path};
    const QString name = QStringLiteral("COM%1").arg(match.captured(1).toInt() + 1);
    return {QStringLiteral("%1 (%2)").arg(name, path), name};
}

} // namespace

DeviceSetup::DeviceSetup(PrivateProfile file, const QString& model) : file_(std::move(file)) {
    chooseModel(model);
}

QList<PortChoice> DeviceSetup::ports() {
    QList<PortChoice> choices;
    for (const QString& path : serialPortCandidates())
        choices.append(serialChoice(path));
    for (const QString& path : LibevdevSource::devicePaths())
        if (const auto name = inputDeviceName(path))
            choices.append({QStringLiteral("%1 (%2)").arg(*name, path), path});
    return choices;
}

bool DeviceSetup::canCalibrate(const QString& model) {
    const auto kind = inputKindOfModel(model);
    return kind == InputKind::Pointing || kind == InputKind::Joystick;
}

void DeviceSetup::chooseModel(const QString& model) {
    model_ = model;
    step_ = Step::Idle;
    corners_.reset();
    const SheetFrame stored = readSheetFrame(file_, model, {});
    mirrorX_ = stored.mirrorX;
    mirrorY_ = stored.mirrorY;
}

void DeviceSetup::startCalibration() {
    if (canCalibrate(model_))
        step_ = Step::TopLeft;
}

DeviceSetup::Step DeviceSetup::cornerPressed(QPoint reading) {
    if (step_ == Step::TopLeft) {
        topLeft_ = reading;
        step_ = Step::BottomRight;
    } else if (step_ == Step::BottomRight && reading.x() != topLeft_.x() &&
               reading.y() != topLeft_.y()) {
        corners_ = SheetFrame{topLeft_.x(), topLeft_.y(), reading.x(), reading.y(), false, false};
        step_ = Step::Idle;
    }
    return step_;
}

void DeviceSetup::setMirror(bool mirrorX, bool mirrorY) {
    mirrorX_ = mirrorX;
    mirrorY_ = mirrorY;
}

bool DeviceSetup::save(const Settings& settings, QString* error) const {
    if (!writeDeviceSettings(file_, settings, error))
        return false;
    if (!canCalibrate(model_))
        return true;
    if (!corners_)
        return writeSheetMirror(file_, model_, mirrorX_, mirrorY_, error);
    SheetFrame frame = *corners_;
    frame.mirrorX = mirrorX_;
    frame.mirrorY = mirrorY_;
    return writeSheetFrame(file_, model_, frame, error);
}

} // namespace mervak
