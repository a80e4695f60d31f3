#include "dispatch/TabletControl.h"

#include "platform/Language.h"

namespace mervak {

TabletControl::TabletControl(SerialLinkFactory makeLink, PressDispatcher& dispatcher,
                             QObject* parent)
    : QObject(parent), dispatcher_(dispatcher), easy_(std::move(makeLink)) {
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
}

TabletControl::~TabletControl() {
    easy_.stop();
}

void TabletControl::start(const Settings& settings) {
    settings_ = settings;
    timer1_.setInterval(settings.interval);
    easy_.setRetardPort(settings.retardPort);
    if (settings.model != QLatin1String("EASY")) {
        // The other models' drivers do not exist on this system.
        failStart();
        return;
    }
    emit statusMessage(TranslateCaption(language_, QStringLiteral("Cercant la tauleta...")));
    easy_.start(serialDevicePath(settings));
}

void TabletControl::stop() {
    timer1_.stop();
    easy_.stop();
}

void TabletControl::onEasyStartFinished(bool ok, const QString& message) {
    if (!ok) {
        failStart();
        emit statusMessage(message);
        return;
    }
    devicePresent_ = true;
    startFailed_ = false;
    portName_ = settings_.portIndex != PortIndex::AutoDetect ? portCaption(settings_.portIndex)
                                                             : easy_.portPath();
    dispatcher_.setDevice(&easySource_);
    dispatcher_.setDevicePresent(true);
    emit statusMessage(QString());
    SetTabletActive(true);
    emit startFinished(true);
}

void TabletControl::failStart() {
    devicePresent_ = false;
    startFailed_ = true;
    portName_.clear();
    dispatcher_.setDevice(&noDevice_);
    dispatcher_.setDevicePresent(false);
    SetTabletActive(false);
    emit startFinished(false);
}

void TabletControl::SetTabletActive(bool active) {
    active_ = active && devicePresent_;
    updatePolling();
    publishState();
}

void TabletControl::setLanguage(Language language) {
    language_ = language;
    easy_.setLanguage(language);
    publishState();
}

void TabletControl::setVirtualTabletShown(bool shown) {
    virtualTabletShown_ = shown;
    dispatcher_.setVirtualTabletShown(shown);
    updatePolling();
}

// A failed start keeps saying so, whatever is pressed or chosen later.
QString TabletControl::caption() const {
    if (!devicePresent_)
        return startFailed_ ? Message(language_, 113) : QString();
    return TranslateCaption(language_, active_ ? QStringLiteral("Tauleta activa a ")
                                               : QStringLiteral("Tauleta Inactiva a ")) +
           portName_;
}

// Timer1 polls while the tablet is on, and while the virtual tablet is shown so
// that its clicks are dispatched even without a device. An interval of 0 stops
// it altogether: it must not turn into a poll on every pass of the event loop.
void TabletControl::updatePolling() {
    if (settings_.interval > 0 && (active_ || virtualTabletShown_))
        timer1_.start();
    else
        timer1_.stop();
}

void TabletControl::publishState() {
    emit stateChanged(active_, caption());
}

} // namespace mervak
