#pragma once

#include "app/ScanHighlight.h"
#include "platform/Clock.h"
#include "platform/SwitchGrab.h"
#include "scanning/Scanner.h"
#include "session/Session.h"

#include <QObject>
#include <QPoint>
#include <QTimer>
#include <functional>
#include <optional>

namespace mervak {

// Switch scanning in the running program: the pupil's settings from MERVAK.INI
// with the Template's own over them, the switches (keys and mouse buttons
// grabbed from the display, or buttons of the evdev device), the highlight on
// the virtual tablet, the spoken labels and the presses, which go the way a
// tablet press goes.
class ScanningController : public QObject {
    Q_OBJECT
public:
    struct Effects {
        std::function<void(int16_t x, int16_t y)> press;
        std::function<void(const QString& text)> speak;
        std::function<bool()> actionTextRunning;
        // The sheet on screen, for the pupil to follow the highlight.
        std::function<void()> showSheet;
        std::function<void(const QString& text)> status;
    };

    ScanningController(Session& session, Clock& clock, SwitchGrab& grab, SheetView* sheet,
                       Effects effects, QObject* parent = nullptr);

    // The pupil's settings, as MERVAK.INI holds them.
    const ScanSettings& userSettings() const { return user_; }
    // Reads MERVAK.INI and starts scanning when it is on.
    void start();
    // New settings for the pupil (already written) or for the Template (in it).
    void setUserSettings(const ScanSettings& settings);
    // The Template, its page or its Areas changed.
    void templateChanged();
    void actionTextsFinished();
    // A button of the evdev device.
    void deviceButton(int code, bool down);
    void stop();

private:
    void apply();
    void grabSwitches();
    void switchChanged(Scanner::Switch which, bool down);
    void showHighlight(const QList<int16_t>& areas);
    void schedule();
    void pressWhenReleased(int16_t x, int16_t y);
    bool anyHeld() const { return held_[0] || held_[1]; }

    Session& session_;
    Clock& clock_;
    SwitchGrab& grab_;
    Effects effects_;
    ScanSettings user_;
    Scanner scanner_;
    ScanHighlight* highlight_;
    QTimer wake_;
    QList<Scanner::Switch> grabbedRoles_;
    QList<QPair<int, Scanner::Switch>> deviceButtons_; // evdev code and its role
    bool held_[2] = {false, false};                    // advance, select
    // A grabbed key held down takes every key typed meanwhile, so a choice
    // types only once the switches are let go.
    std::optional<QPoint> pendingPress_;
};

} // namespace mervak
