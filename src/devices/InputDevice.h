#pragma once

#include "devices/InputDecoder.h"
#include "devices/InputEventSource.h"
#include "devices/PressPoint.h"
#include "platform/Language.h"

#include <QObject>
#include <QTimer>
#include <memory>
#include <optional>

namespace mervak {

// A model read from evdev (DIL, GENIUS, TRUSTMASTER, DANCEPAD): finds and opens
// its device or recording, decodes it into the model's position slot, and opens
// the same device again by itself when it comes back after being unplugged.
class InputDevice : public QObject {
    Q_OBJECT
public:
    explicit InputDevice(QObject* parent = nullptr);
    ~InputDevice() override;

    void setLanguage(Language language) { language_ = language; }

    // `port` is a device path, a recording, or empty to take the first device
    // that serves the model (stable by-id names first). Calibration and the dance
    // pad's cells come from the file `settingsPath`. Ends with one startFinished.
    void start(const QString& model, const QString& port, const QString& settingsPath);
    void stop();
    // Grabbed while the tablet is active; kept across a reconnection.
    void setGrabbed(bool grabbed);

    // The model's position slot: (0, 0) when nothing is pressed.
    PressPoint position() const { return decoder_ ? decoder_->press() : PressPoint{}; }
    // The device or recording in use.
    QString portPath() const { return path_; }

    // The evdev key code of a button name such as "BTN_TRIGGER"; -1 when there is none.
    static int buttonCode(const QString& name);

    // How often a lost device is looked for again.
    static constexpr int kReconnectMs = 1000;

signals:
    // On failure `message` says why, naming the device, in plain words.
    void startFinished(bool ok, const QString& message);
    // The slot changed; emitted at once, so the press need not wait for a poll.
    void positionArrived(mervak::PressPoint position);
    // Where the device points changed (the joystick's stick), pressed or not.
    void pointerMoved(mervak::PressPoint pointer);
    // A touch or button began, at this reading of the device (see InputDecoder::contact).
    void touchedDown(QPoint reading);
    // A button (evdev key code) went down or up, whatever the model makes of it.
    void buttonChanged(int code, bool down);
    void statusMessage(const QString& text);
    void lost();
    void resumed();

private:
    QString kindName() const;
    QString findDevice(QString* message) const;
    bool openSource(QString* message);
    void onReady();
    void onEvents(const std::vector<InputEvent>& events);
    void onLost();
    void reconnect();

    Language language_ = Language::Catalan;
    QString model_;
    QString port_; // as configured; empty: auto-detect
    QString settingsPath_;
    InputKind kind_ = InputKind::Pointing;
    QString path_;
    std::unique_ptr<InputEventSource> source_;
    std::optional<InputDecoder> decoder_;
    bool starting_ = false;
    bool grabbed_ = false;
    QTimer reconnectTimer_;
};

} // namespace mervak
