#include "dispatch/TabletControl.h"

#include "platform/Language.h"

namespace mervak {

TabletControl::TabletControl(Session& session, SerialLinkFactory makeLink,
                             PressDispatcher& dispatcher, QObject* parent)
    : QObject(parent), session_(session), dispatcher_(dispatcher), easy_(std::move(makeLink)) {
    dispatcher_.setDevice(&noDevice_);
    connect(&timer1_, &QTimer::timeout, &dispatcher_, &PressDispatcher::tick);
    connect(&easy_, &EasyTablet::startFinished, this, &TabletControl::onEasyStartFinished);
    connect(&easy_, &EasyTablet::positionArrived, this, [this](PressPoint position) {
        if (active_)
            dispatcher_.deviceReadingArrived(EasyDeviceSource::reading(position));
    });
    connect(&easy_, &EasyTablet::statusMessage, this, &TabletControl::statusMessage);
    connect(&easy_, &EasyTablet::beepRequested, this, &TabletControl::beepRequested);
    // A lost tablet must not go on saying it is active.
    connect(&easy_, &EasyTablet::portClosed, this, [this] { SetTabletActive(false); });
    connect(&input_, &InputDevice::startFinished, this, &TabletControl::onInputStartFinished);
    connect(&input_, &InputDevice::positionArrived, this, [this](PressPoint position) {
        if (active_)
            dispatcher_.deviceReadingArrived(EasyDeviceSource::reading(position));
    });
    connect(&input_, &InputDevice::pointerMoved, this, &TabletControl::pointerMoved);
    connect(&input_, &InputDevice::statusMessage, this, &TabletControl::statusMessage);
    // An unplugged device says so; plugged back, it is as the user left it.
    connect(&input_, &InputDevice::lost, this, [this] {
        activeWhenLost_ = active_;
        SetTabletActive(false);
    });
    connect(&input_, &InputDevice::resumed, this, [this] { SetTabletActive(activeWhenLost_); });
}

TabletControl::~TabletControl() {
    easy_.stop();
    input_.stop();
}

void TabletControl::start() {
    const Settings& settings = session_.settings;
    easy_.setLanguage(settings.language);
    timer1_.setInterval(settings.interval);
    easy_.setRetardPort(settings.retardPort);
    if (inputKindOfModel(settings.model)) {
        input_.setLanguage(settings.language);
        input_.start(settings.model, settings.portDevice, settingsFilePath(session_.homeFolder));
        return;
    }
    if (settings.model != QLatin1String("EASY")) {
        // The other models' drivers do not exist on this system.
        failStart();
        return;
    }
    emit statusMessage(
        TranslateCaption(session_.language(), QStringLiteral("Cercant la tauleta...")));
    easy_.start(serialDevicePath(settings));
}

void TabletControl::stop() {
    timer1_.stop();
    easy_.stop();
    input_.stop();
}

void TabletControl::onEasyStartFinished(bool ok, const QString& message) {
    if (!ok) {
        failStart();
        emit statusMessage(message);
        return;
    }
    session_.DevicePresent = true;
    startFailed_ = false;
    portName_ = session_.settings.portIndex != PortIndex::AutoDetect
                    ? portCaption(session_.settings.portIndex)
                    : easy_.portPath();
    dispatcher_.setDevice(&easySource_);
    emit statusMessage(QString());
    SetTabletActive(true);
    emit startFinished(true);
}

// Every evdev model is a USB device (port index 7).
void TabletControl::onInputStartFinished(bool ok, const QString& message) {
    if (!ok) {
        failStart();
        emit statusMessage(message);
        return;
    }
    session_.DevicePresent = true;
    startFailed_ = false;
    portName_ = portCaption(PortIndex::Usb);
    dispatcher_.setDevice(&inputSource_);
    emit statusMessage(QString());
    SetTabletActive(true);
    emit startFinished(true);
}

void TabletControl::failStart() {
    session_.DevicePresent = false;
    startFailed_ = true;
    portName_.clear();
    dispatcher_.setDevice(&noDevice_);
    SetTabletActive(false);
    emit startFinished(false);
}

void TabletControl::SetTabletActive(bool active) {
    active_ = active && session_.DevicePresent;
    input_.setGrabbed(active_);
    updatePolling();
    publishState();
}

void TabletControl::retranslate() {
    easy_.setLanguage(session_.language());
    input_.setLanguage(session_.language());
    publishState();
}

void TabletControl::setVirtualTabletShown(bool shown) {
    virtualTabletShown_ = shown;
    dispatcher_.setVirtualTabletShown(shown);
    updatePolling();
}

// A failed start keeps saying so, whatever is pressed or chosen later.
QString TabletControl::caption() const {
    if (!session_.DevicePresent)
        return startFailed_ ? Message(session_.language(), Msg::TabletNotFound) : QString();
    return TranslateCaption(session_.language(), active_ ? QStringLiteral("Tauleta activa a ")
                                                         : QStringLiteral("Tauleta Inactiva a ")) +
           portName_;
}

// Timer1 polls while the tablet is on, and while the virtual tablet is shown so
// that its clicks are dispatched even without a device. An interval of 0 stops
// it altogether: it must not turn into a poll on every pass of the event loop.
void TabletControl::updatePolling() {
    if (session_.settings.interval > 0 && (active_ || virtualTabletShown_))
        timer1_.start();
    else
        timer1_.stop();
}

void TabletControl::publishState() {
    emit stateChanged(active_, caption());
}

} // namespace mervak
