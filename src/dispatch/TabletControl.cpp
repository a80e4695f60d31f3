#include "dispatch/TabletControl.h"

#include "platform/Checked16.h"
#include "platform/Language.h"

#include <QElapsedTimer>

namespace mervak {

namespace {

// RetardPort sets the tracker's polling only below 101 ms; 0 (the key missing)
// and larger values keep this.
constexpr int kTimer3Ms = 50;
constexpr int32_t kLongestRetardPort = 100;

int64_t monotonicMs() {
    static QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return clock.elapsed();
}

} // namespace

TabletControl::TabletControl(Session& session, SerialLinkFactory makeLink,
                             PressDispatcher& dispatcher, QObject* parent)
    : QObject(parent), session_(session), dispatcher_(dispatcher), easy_(std::move(makeLink)),
      mapping_(PrivateProfile(settingsFilePath(session.homeFolder)),
               [this](const QString& text) { emit noticeRequested(text); }),
      vistalSource_([this](int16_t& x, int16_t& y) { return tracker_.VSTObtenirPosicio(x, y); },
                    mapping_, session, monotonicMs) {
    dispatcher_.setDevice(&noDevice_);
    connect(&timer1_, &QTimer::timeout, &dispatcher_, &PressDispatcher::tick);
    connect(&timer3_, &QTimer::timeout, this, &TabletControl::pollTracker);
    connect(&easy_, &EasyTablet::startFinished, this, &TabletControl::onEasyStartFinished);
    connect(&easy_, &EasyTablet::positionArrived, this, &TabletControl::onPosition);
    connect(&easy_, &EasyTablet::statusMessage, this, &TabletControl::statusMessage);
    connect(&easy_, &EasyTablet::beepRequested, this, &TabletControl::beepRequested);
    // A lost tablet must not go on saying it is active.
    connect(&easy_, &EasyTablet::portClosed, this, [this] { SetTabletActive(false); });
    connect(&input_, &InputDevice::startFinished, this, &TabletControl::onInputStartFinished);
    connect(&input_, &InputDevice::positionArrived, this, &TabletControl::onPosition);
    connect(&input_, &InputDevice::pointerMoved, this, &TabletControl::pointerMoved);
    connect(&input_, &InputDevice::touchedDown, this, &TabletControl::touchedDown);
    connect(&input_, &InputDevice::buttonChanged, this, &TabletControl::deviceButton);
    connect(&input_, &InputDevice::statusMessage, this, &TabletControl::statusMessage);
    // An unplugged device says so; plugged back, it is as the user left it.
    connect(&input_, &InputDevice::lost, this, [this] {
        activeWhenLost_ = active_;
        SetTabletActive(false);
    });
    connect(&input_, &InputDevice::resumed, this, [this] { SetTabletActive(activeWhenLost_); });
}

TabletControl::~TabletControl() {
    stop();
}

void TabletControl::start() {
    const Settings& settings = session_.settings;
    easy_.setLanguage(settings.language);
    timer1_.setInterval(settings.interval);
    easy_.setRetardPort(settings.retardPort);
    failureMessage_ = Msg::TabletNotFound;
    if (settings.model == QLatin1String("VISTAL")) {
        startTracker();
        return;
    }
    if (inputKindOfModel(settings.model)) {
        input_.setLanguage(settings.language);
        input_.start(settings.model, settings.portDevice, settingsFilePath(session_.homeFolder));
        return;
    }
    if (settings.model != QLatin1String("EASY")) {
        // A model name this system knows no device for.
        failStart();
        return;
    }
    emit statusMessage(
        TranslateCaption(session_.language(), QStringLiteral("Cercant la tauleta...")));
    easy_.start(serialDevicePath(settings));
}

void TabletControl::stop() {
    timer1_.stop();
    timer3_.stop();
    easy_.stop();
    input_.stop();
    tracker_.VSTFinalitza();
}

// Where the tracker's messages go: 72 when no camera or file could be opened (or
// the camera is in use), 106 when it was already running, 73 in the status line
// when no corners were ever stored.
void TabletControl::startTracker() {
    const PrivateProfile ini(settingsFilePath(session_.homeFolder));
    const TrackerSettings settings = readTrackerSettings(ini);
    tracker_.configure(settings);
    vistalSource_.setDwellMs(settings.dwellMs);
    const ColourTracker::Start started = tracker_.start();
    if (started != ColourTracker::Start::Started &&
        started != ColourTracker::Start::AlreadyRunning) {
        failureMessage_ = Msg::TrackerNotStarted;
        failStart();
        emit statusMessage(tracker_.problem());
        return;
    }
    mapping_.BuildMapping();
    const int32_t retard = session_.settings.retardPort;
    timer3_.start(retard > 0 && retard <= kLongestRetardPort ? int(retard) : kTimer3Ms);
    dispatcher_.setDevice(&vistalSource_);
    deviceStarted(portCaption(PortIndex::Usb));
    bool calibrated = false;
    try {
        calibrated = ReadCorners(ini).calibrated();
    } catch (const Overflow16&) {
    }
    if (started == ColourTracker::Start::AlreadyRunning)
        emit statusMessage(Message(session_.language(), Msg::TrackerRunning));
    else if (!calibrated)
        emit statusMessage(Message(session_.language(), Msg::TrackerNotCalibrated));
}

// A fault of the mapping ends this tick with no press, and says so.
void TabletControl::pollTracker() {
    try {
        vistalSource_.poll();
    } catch (const std::exception&) {
        emit statusMessage(
            TranslateCaption(session_.language(), QStringLiteral("Desbordament numèric")));
    }
}

void TabletControl::onEasyStartFinished(bool ok, const QString& message) {
    if (!ok) {
        failStart();
        emit statusMessage(message);
        return;
    }
    dispatcher_.setDevice(&easySource_);
    deviceStarted(session_.settings.portIndex != PortIndex::AutoDetect
                      ? portCaption(session_.settings.portIndex)
                      : easy_.portPath());
}

void TabletControl::deviceStarted(const QString& portName) {
    session_.DevicePresent = true;
    startFailed_ = false;
    portName_ = portName;
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
    active_ = active && session_.DevicePresent && !testing_;
    input_.setGrabbed(active_ || testing_);
    updatePolling();
    publishState();
}

void TabletControl::setTesting(bool testing) {
    testing_ = testing;
    SetTabletActive(!testing);
}

void TabletControl::onPosition(PressPoint position) {
    emit positionArrived(position);
    if (active_)
        dispatcher_.deviceReadingArrived(EasyDeviceSource::reading(position));
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
        return startFailed_ ? Message(session_.language(), failureMessage_) : QString();
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
