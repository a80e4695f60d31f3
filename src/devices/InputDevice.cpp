#include "devices/InputDevice.h"

#include "devices/LibevdevSource.h"
#include "platform/PrivateProfile.h"

#include <QFileInfo>
#include <libevdev/libevdev.h>
#include <linux/input.h>

namespace mervak {

namespace {

QString openFailedText(Language language, const QString& path, const OpenResult& result) {
    switch (result.failure) {
    case OpenFailure::NoPermission:
        return TranslateCaption(language,
                                QStringLiteral("No hi ha permís per llegir el dispositiu %1. "
                                               "Instal·leu la regla udev de Mervak "
                                               "(60-mervak-input.rules) o afegiu l'usuari al grup "
                                               "input, i torneu a entrar a la sessió."))
            .arg(path);
    case OpenFailure::NotFound:
        return TranslateCaption(language, QStringLiteral("El dispositiu %1 no existeix."))
            .arg(path);
    default:
        return TranslateCaption(language,
                                QStringLiteral("No s'ha pogut obrir el dispositiu %1: %2."))
            .arg(path, result.detail);
    }
}

} // namespace

InputDevice::InputDevice(QObject* parent) : QObject(parent) {
    reconnectTimer_.setInterval(kReconnectMs);
    connect(&reconnectTimer_, &QTimer::timeout, this, &InputDevice::reconnect);
}

InputDevice::~InputDevice() = default;

void InputDevice::start(const QString& model, const QString& port, const QString& settingsPath) {
    stop();
    model_ = model;
    port_ = port;
    settingsPath_ = settingsPath;
    kind_ = inputKindOfModel(model).value_or(InputKind::Pointing);
    QString message;
    path_ = port.isEmpty() ? findDevice(&message) : port;
    if (path_.isEmpty() || !openSource(&message)) {
        emit startFinished(false, message);
        return;
    }
    starting_ = true;
}

void InputDevice::stop() {
    reconnectTimer_.stop();
    starting_ = false;
    decoder_.reset();
    source_.reset();
}

void InputDevice::setGrabbed(bool grabbed) {
    grabbed_ = grabbed;
    if (source_ && decoder_)
        source_->setGrabbed(grabbed);
}

// The first device that serves the model; when none does and some could not be
// read, the user learns how to grant access to the first of those.
// What the model is, in words a teacher knows.
QString InputDevice::kindName() const {
    switch (kind_) {
    case InputKind::Joystick:
        return QStringLiteral("joystick");
    case InputKind::DancePad:
        return TranslateCaption(language_, QStringLiteral("catifa de ball"));
    case InputKind::Pointing:
        break;
    }
    return TranslateCaption(language_,
                            QStringLiteral("tauleta USB, pantalla tàctil o pissarra digital"));
}

QString InputDevice::findDevice(QString* message) const {
    QString denied;
    for (const QString& path : LibevdevSource::devicePaths()) {
        OpenResult result;
        const auto capabilities = LibevdevSource::probe(path, &result);
        if (capabilities && servesAs(*capabilities, kind_))
            return path;
        if (result.failure == OpenFailure::NoPermission && denied.isEmpty())
            denied = path;
    }
    *message =
        denied.isEmpty()
            ? TranslateCaption(language_, QStringLiteral("No es troba connectat cap aparell que "
                                                         "serveixi de %1. Comproveu que estigui "
                                                         "endollat i feu «Test de la tauleta»."))
                  .arg(kindName())
            : openFailedText(language_, denied, {OpenFailure::NoPermission, {}});
    return {};
}

bool InputDevice::openSource(QString* message) {
    source_ = makeInputEventSource(path_);
    connect(source_.get(), &InputEventSource::ready, this, &InputDevice::onReady);
    connect(source_.get(), &InputEventSource::eventsArrived, this, &InputDevice::onEvents);
    connect(source_.get(), &InputEventSource::lost, this, &InputDevice::onLost);
    const OpenResult result = source_->open();
    if (result.ok())
        return true;
    *message = openFailedText(language_, path_, result);
    source_.reset();
    return false;
}

void InputDevice::onReady() {
    const InputCapabilities& capabilities = source_->capabilities();
    if (!servesAs(capabilities, kind_)) {
        const QString message =
            TranslateCaption(language_, QStringLiteral("L'aparell %1 (%2) no serveix de %3. "
                                                       "Trieu-ne un altre a «Test de la tauleta»."))
                .arg(path_, capabilities.name, kindName());
        stop();
        emit startFinished(false, message);
        return;
    }
    const PrivateProfile settings(settingsPath_);
    decoder_.emplace(kind_, capabilities,
                     readSheetFrame(settings, model_, InputDecoder::wholeArea(kind_, capabilities)),
                     readDancePadCells(settings));
    source_->setGrabbed(grabbed_);
    if (std::exchange(starting_, false)) {
        emit startFinished(true, QString());
        return;
    }
    emit statusMessage(QString());
    emit resumed();
}

void InputDevice::onEvents(const std::vector<InputEvent>& events) {
    if (!decoder_)
        return;
    for (const InputEvent& event : events) {
        if (event.type == EV_KEY && event.value != 2) // 2: the kernel's auto-repeat
            emit buttonChanged(event.code, event.value != 0);
        const PressPoint press = decoder_->press();
        const PressPoint pointer = decoder_->pointer();
        const bool touching = decoder_->contact().has_value();
        if (!decoder_->feed(event))
            continue;
        if (!touching && decoder_->contact())
            emit touchedDown(*decoder_->contact());
        if (decoder_->pointer() != pointer)
            emit pointerMoved(decoder_->pointer());
        if (decoder_->press() != press)
            emit positionArrived(decoder_->press());
    }
}

int InputDevice::buttonCode(const QString& name) {
    return libevdev_event_code_from_name(EV_KEY, name.trimmed().toUpper().toLatin1().constData());
}

// A press held when the device went away ends with it.
void InputDevice::onLost() {
    const bool pressed = position() != PressPoint{};
    decoder_.reset();
    source_.release()->deleteLater();
    if (pressed)
        emit positionArrived({});
    emit statusMessage(
        TranslateCaption(language_, QStringLiteral("S'ha perdut el dispositiu %1; es tornarà a fer "
                                                   "servir quan es torni a connectar."))
            .arg(path_));
    emit lost();
    reconnectTimer_.start();
}

// Auto-detection looks again, since a device plugged back may get another number.
void InputDevice::reconnect() {
    QString message;
    const QString path = port_.isEmpty() ? findDevice(&message) : port_;
    if (path.isEmpty() || !QFileInfo::exists(path))
        return;
    path_ = path;
    if (openSource(&message))
        reconnectTimer_.stop();
}

} // namespace mervak
