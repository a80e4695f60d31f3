#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QList>
#include <QProcess>
#include <QVariantMap>

namespace mervak::test {

// A private session bus of our own (dbus-daemon), for as long as the object lives.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    // Empty when dbus-daemon could not start.
    QString address() const { return address_; }

private:
    QProcess daemon_;
    QString address_;
};

// The desktop's remote desktop portal as far as Mervak uses it: answers each
// request with its Response signal, as the real one does after its dialog, and
// records every call.
class FakePortal : public QDBusVirtualObject {
public:
    struct Call {
        QString method;
        QVariantList arguments; // a{sv} options as QVariantMap
    };

    static constexpr std::uint32_t kStreamNode = 44;

    // Owns org.freedesktop.portal.Desktop on its own connection to `address`.
    explicit FakePortal(const QString& address);
    ~FakePortal() override;

    bool registered() const { return registered_; }

    // The user's answer to the dialog the Start call shows: 0 allows, 1 cancels.
    void setStartResponse(uint response) { startResponse_ = response; }
    void setRestoreToken(const QString& token) { restoreToken_ = token; }

    const QList<Call>& calls() const { return calls_; }
    QStringList methods() const;
    // The options of the last call of `method`.
    QVariantMap options(const QString& method) const;

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    QVariantMap resultsOf(const QString& method) const;

    QDBusConnection bus_;
    bool registered_ = false;
    uint startResponse_ = 0;
    QString restoreToken_;
    QList<Call> calls_;
};

} // namespace mervak::test
