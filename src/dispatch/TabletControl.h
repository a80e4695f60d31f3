#pragma once

#include "devices/EasyTablet.h"
#include "devices/InputDevice.h"
#include "dispatch/DeviceSource.h"
#include "dispatch/EasyDeviceSource.h"
#include "dispatch/PressDispatcher.h"
#include "dispatch/VistalDeviceSource.h"
#include "platform/Settings.h"
#include "tracker/ColourTracker.h"
#include "tracker/PerspectiveMapping.h"

#include <QObject>
#include <QTimer>

namespace mervak {

// Starts and stops the input device of the configured model and keeps the
// tablet's state: whether a device is present, whether the user has it switched
// on, the caption that says so, and the polling timer (Timer1) that feeds the
// press dispatcher.
class TabletControl : public QObject {
    Q_OBJECT
public:
    // Reads the settings and the language from `session`, and keeps its DevicePresent.
    TabletControl(Session& session, SerialLinkFactory makeLink, PressDispatcher& dispatcher,
                  QObject* parent = nullptr);
    ~TabletControl() override;

    // Starts the device of the configured model; ends with one startFinished().
    void start();
    void stop();

    // Only a present device can be switched on, and not while it is being tested.
    void SetTabletActive(bool active);
    // While the device is tested or calibrated its presses go to the test's
    // readout only, never to the dispatcher, and it stays grabbed; afterwards a
    // present device is switched on.
    void setTesting(bool testing);
    // The session's language changed.
    void retranslate();
    // Clicks on the virtual tablet are dispatched by the poll, device or not.
    void setVirtualTabletShown(bool shown);

    bool isActive() const { return active_; }
    bool isPolling() const { return timer1_.isActive(); }
    // "Tauleta activa a COM1", "Tauleta Inactiva a COM1", message 113 after a
    // failed start (72 for the colour tracker), or nothing before any start.
    QString caption() const;

    // The colour tracker and its mapping, for the calibration form.
    ColourTracker& tracker() { return tracker_; }
    PerspectiveMapping& mapping() { return mapping_; }
    VistalDeviceSource& vistalSource() { return vistalSource_; }
    bool isTrackerPolling() const { return timer3_.isActive(); }

signals:
    // Where the joystick points, for the virtual tablet to mark.
    void pointerMoved(mervak::PressPoint pointer);
    // The device's position slot changed, whether the tablet is on or not.
    void positionArrived(mervak::PressPoint position);
    // An evdev device was touched at this reading of its own (see InputDevice).
    void touchedDown(QPoint reading);
    // A button of an evdev device (its key code) went down or up.
    void deviceButton(int code, bool down);
    void stateChanged(bool active, const QString& caption);
    // A device was searched for: true when one started. When none did, message
    // 113 is in caption() for the user.
    void startFinished(bool present);
    void statusMessage(const QString& text);
    void beepRequested();
    // A message box with the program's default title (the mapping's own message).
    void noticeRequested(const QString& text);

private:
    void onEasyStartFinished(bool ok, const QString& message);
    void startTracker();
    void pollTracker();
    void deviceStarted(const QString& portName);
    void onInputStartFinished(bool ok, const QString& message);
    void failStart();
    void updatePolling();
    void publishState();
    void onPosition(PressPoint position);

    Session& session_;
    PressDispatcher& dispatcher_;
    EasyTablet easy_;
    EasyDeviceSource easySource_{easy_};
    InputDevice input_;
    SlotDeviceSource inputSource_{[this] { return input_.position(); }};
    bool activeWhenLost_ = false;
    NoDevice noDevice_;
    ColourTracker tracker_;
    PerspectiveMapping mapping_;
    VistalDeviceSource vistalSource_;
    QTimer timer1_;
    QTimer timer3_; // polls the colour tracker into its slot
    int failureMessage_ = Msg::TabletNotFound;
    QString portName_;
    bool startFailed_ = false;
    bool active_ = false;
    bool testing_ = false;
    bool virtualTabletShown_ = false;
};

} // namespace mervak
