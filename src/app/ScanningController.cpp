#include "app/ScanningController.h"

#include "devices/InputDevice.h"
#include "platform/Settings.h"

#include <utility>

namespace mervak {

ScanningController::ScanningController(Session& session, Clock& clock, SwitchGrab& grab,
                                       SheetView* sheet, Effects effects, QObject* parent)
    : QObject(parent), session_(session), clock_(clock), grab_(grab), effects_(std::move(effects)),
      scanner_(clock,
               {[this] { return scanRows(session_.tmpl); },
                [this] { return pendingPress_ || effects_.actionTextRunning(); },
                [this](int16_t area) { return scanLabel(session_.tmpl.area(area).ActionText); },
                [this](int16_t area) { return scanLevelOf(session_.tmpl.area(area).ActionText); }}),
      highlight_(new ScanHighlight(sheet)) {
    wake_.setSingleShot(true);
    connect(&wake_, &QTimer::timeout, &scanner_, &Scanner::update);
    connect(&scanner_, &Scanner::scheduleChanged, this, &ScanningController::schedule);
    connect(&scanner_, &Scanner::highlightChanged, this, &ScanningController::showHighlight);
    connect(&scanner_, &Scanner::pressRequested, this, &ScanningController::pressWhenReleased);
    connect(&scanner_, &Scanner::speakRequested, this,
            [this](const QString& text) { effects_.speak(text); });
}

void ScanningController::start() {
    user_ = readScanSettings(PrivateProfile(settingsFilePath(session_.homeFolder)));
    apply();
}

void ScanningController::setUserSettings(const ScanSettings& settings) {
    user_ = settings;
    apply();
}

void ScanningController::templateChanged() {
    if (withTemplateScan(user_, session_.tmpl.Exploracio) != scanner_.settings())
        apply();
    else
        scanner_.restart();
}

void ScanningController::actionTextsFinished() {
    scanner_.update();
}

void ScanningController::stop() {
    pendingPress_.reset();
    scanner_.setSettings(ScanSettings{});
    grab_.release();
}

void ScanningController::apply() {
    const ScanSettings settings = withTemplateScan(user_, session_.tmpl.Exploracio);
    scanner_.setSettings(settings);
    grabSwitches();
    if (settings.isOn())
        effects_.showSheet();
}

// Keys and mouse buttons are taken from the display; names of evdev buttons
// ("BTN_...") are the device's.
void ScanningController::grabSwitches() {
    grab_.release();
    held_[0] = held_[1] = false;
    grabbedRoles_.clear();
    deviceButtons_.clear();
    const ScanSettings& settings = scanner_.settings();
    if (!settings.isOn())
        return;
    QList<QPair<QString, Scanner::Switch>> switches = {{settings.select, Scanner::Switch::Select}};
    if (settings.switches == 2)
        switches.prepend({settings.advance, Scanner::Switch::Advance});
    QStringList names;
    QStringList refused;
    for (const auto& [name, role] : switches) {
        if (name.trimmed().startsWith(QStringLiteral("BTN_"), Qt::CaseInsensitive)) {
            const int code = InputDevice::buttonCode(name);
            if (code < 0)
                refused.append(name);
            else
                deviceButtons_.append({code, role});
        } else {
            names.append(name);
            grabbedRoles_.append(role);
        }
    }
    refused += grab_.grab(
        names, [this](int index, bool down) { switchChanged(grabbedRoles_.value(index), down); });
    if (!refused.isEmpty())
        effects_.status(TranslateCaption(session_.language(),
                                         QStringLiteral("No es pot fer servir el commutador %1"))
                            .arg(refused.join(QStringLiteral(", "))));
}

void ScanningController::deviceButton(int code, bool down) {
    for (const auto& [button, role] : deviceButtons_)
        if (button == code)
            switchChanged(role, down);
}

void ScanningController::switchChanged(Scanner::Switch which, bool down) {
    held_[which == Scanner::Switch::Advance ? 0 : 1] = down;
    if (down)
        scanner_.switchDown(which);
    else
        scanner_.switchUp(which);
    if (!anyHeld() && pendingPress_) {
        const QPoint point = *std::exchange(pendingPress_, std::nullopt);
        effects_.press(static_cast<int16_t>(point.x()), static_cast<int16_t>(point.y()));
        scanner_.update();
    }
}

void ScanningController::pressWhenReleased(int16_t x, int16_t y) {
    if (anyHeld())
        pendingPress_ = QPoint(x, y);
    else
        effects_.press(x, y);
}

void ScanningController::showHighlight(const QList<int16_t>& areas) {
    std::optional<SheetRect> frame;
    for (const int16_t index : areas) {
        const SheetRect rect = rectOf(session_.tmpl.area(index));
        if (!frame)
            frame = rect;
        frame = SheetRect{std::min(frame->left, rect.left), std::min(frame->bottom, rect.bottom),
                          std::max(frame->right, rect.right), std::max(frame->top, rect.top)};
    }
    highlight_->setFrame(frame);
}

void ScanningController::schedule() {
    const auto wake = scanner_.nextWakeMs();
    if (!wake) {
        wake_.stop();
        return;
    }
    wake_.start(static_cast<int>(std::max<std::int64_t>(0, *wake - clock_.monotonicMs())));
}

} // namespace mervak
