#include "FakePortal.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QTimer>

namespace mervak::test {

namespace {

// The shapes of the portal's streams, a(ua{sv}), and of a stream's size, (ii).
struct StreamSize {
    int width = 0;
    int height = 0;
};

struct Stream {
    uint node = 0;
    QVariantMap properties;
};

} // namespace
} // namespace mervak::test

Q_DECLARE_METATYPE(mervak::test::StreamSize)
Q_DECLARE_METATYPE(mervak::test::Stream)

namespace mervak::test {

namespace {

QDBusArgument& operator<<(QDBusArgument& argument, const StreamSize& size) {
    argument.beginStructure();
    argument << size.width << size.height;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StreamSize& size) {
    argument.beginStructure();
    argument >> size.width >> size.height;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const Stream& stream) {
    argument.beginStructure();
    argument << stream.node << stream.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Stream& stream) {
    argument.beginStructure();
    argument >> stream.node >> stream.properties;
    argument.endStructure();
    return argument;
}

const QString kPortalPath = QStringLiteral("/org/freedesktop/portal/desktop");

QVariant plain(const QVariant& value) {
    return value.canConvert<QDBusArgument>() ? QVariant(qdbus_cast<QVariantMap>(value)) : value;
}

} // namespace

PrivateBus::PrivateBus() {
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--session"), QStringLiteral("--nofork"),
                   QStringLiteral("--print-address=1")});
    if (daemon_.waitForStarted(5000) && daemon_.waitForReadyRead(5000))
        address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
}

PrivateBus::~PrivateBus() {
    daemon_.kill();
    daemon_.waitForFinished(5000);
}

FakePortal::FakePortal(const QString& address)
    : bus_(QDBusConnection::connectToBus(address, QStringLiteral("fake-portal"))) {
    qDBusRegisterMetaType<StreamSize>();
    qDBusRegisterMetaType<Stream>();
    qDBusRegisterMetaType<QList<Stream>>();
    registered_ = bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop")) &&
                  bus_.registerVirtualObject(kPortalPath, this);
}

FakePortal::~FakePortal() {
    bus_.unregisterObject(kPortalPath);
    QDBusConnection::disconnectFromBus(QStringLiteral("fake-portal"));
}

QStringList FakePortal::methods() const {
    QStringList names;
    for (const Call& call : calls_)
        names.append(call.method);
    return names;
}

QVariantMap FakePortal::options(const QString& method) const {
    for (auto call = calls_.rbegin(); call != calls_.rend(); ++call)
        if (call->method == method)
            for (const QVariant& argument : call->arguments)
                if (argument.typeId() == QMetaType::QVariantMap)
                    return argument.toMap();
    return {};
}

QString FakePortal::introspect(const QString&) const {
    return {};
}

QVariantMap FakePortal::resultsOf(const QString& method) const {
    if (method == u"CreateSession")
        return {{QStringLiteral("session_handle"),
                 QStringLiteral("/org/freedesktop/portal/desktop/session/1/mervak")}};
    if (method != u"Start")
        return {};
    const Stream monitor{kStreamNode,
                         {{QStringLiteral("size"), QVariant::fromValue(StreamSize{1280, 720})}}};
    QVariantMap results{{QStringLiteral("devices"), 3u},
                        {QStringLiteral("streams"), QVariant::fromValue(QList<Stream>{monitor})}};
    if (!restoreToken_.isEmpty())
        results.insert(QStringLiteral("restore_token"), restoreToken_);
    return results;
}

bool FakePortal::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    Call call{message.member(), {}};
    for (const QVariant& argument : message.arguments())
        call.arguments.append(plain(argument));
    calls_.append(call);
    const QVariantMap options = this->options(call.method);
    if (!options.contains(QStringLiteral("handle_token"))) {
        connection.send(message.createReply());
        return true;
    }
    QString sender = message.service().mid(1);
    sender.replace(u'.', u'_');
    const QString request =
        QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
            .arg(sender, options.value(QStringLiteral("handle_token")).toString());
    connection.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
    const uint response = call.method == u"Start" ? startResponse_ : 0;
    QDBusMessage signal = QDBusMessage::createSignal(
        request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
    signal << response << (response == 0 ? resultsOf(call.method) : QVariantMap());
    QTimer::singleShot(0, [connection, signal]() mutable { connection.send(signal); });
    return true;
}

} // namespace mervak::test
