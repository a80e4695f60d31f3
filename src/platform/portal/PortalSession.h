#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QSize>
#include <QVariantMap>
#include <functional>

namespace mervak {

// A remote desktop session with the desktop's portal (org.freedesktop.portal.
// RemoteDesktop, as GNOME and KDE offer): the desktop asks the user once to let
// Mervak control the keyboard and the pointer; a restore token from the answer
// lets later sessions start without asking, while the user does not revoke it.
// The pointer moves over a screen-cast stream of one monitor, which the same
// dialog asks for.
class PortalSession : public QObject {
    Q_OBJECT
public:
    enum class State { Starting, Started, Refused, Failed };

    static constexpr std::uint32_t kKeyboard = 1;
    static constexpr std::uint32_t kPointer = 2;
    static constexpr std::uint32_t kMonitor = 1;
    static constexpr std::uint32_t kPersistUntilRevoked = 2;

    // `token` is the restore token kept from the last session (may be empty);
    // `keepToken` stores the one the desktop gives now.
    PortalSession(QDBusConnection bus, QString token, std::function<void(QString)> keepToken,
                  QObject* parent = nullptr);

    // Asks the portal for a session; `finished` tells how it went.
    void start();
    State state() const { return state_; }

    // Input, once started. Keysyms are X keysyms; buttons evdev codes.
    void keysym(std::uint32_t symbol, bool pressed);
    void pointerTo(double x, double y); // in the stream's pixels
    void button(std::uint32_t evdevButton, bool pressed);

    // The monitor stream's size, empty until started.
    QSize streamSize() const { return streamSize_; }

signals:
    void finished(mervak::PortalSession::State state);

private slots:
    void onResponse(uint response, const QVariantMap& results);

private:
    enum class Step { CreateSession, SelectDevices, SelectSources, Start };

    void request(Step step, const QString& interface, const QString& method,
                 const QVariantList& leading, QVariantMap options);
    void advance(const QVariantMap& results);
    void finish(State state);
    void notify(const QString& method, const QVariantList& arguments);

    QDBusConnection bus_;
    QString token_;
    std::function<void(QString)> keepToken_;
    State state_ = State::Starting;
    Step step_ = Step::CreateSession;
    QString requestPath_;
    QString sessionPath_;
    std::uint32_t stream_ = 0;
    QSize streamSize_;
    int requests_ = 0;
};

} // namespace mervak
