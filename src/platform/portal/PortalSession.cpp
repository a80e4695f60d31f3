#include "platform/portal/PortalSession.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace mervak {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kRemoteDesktop = QStringLiteral("org.freedesktop.portal.RemoteDesktop");
const QString kScreenCast = QStringLiteral("org.freedesktop.portal.ScreenCast");

// The portal answers each request by a Response signal on a path made of our
// bus name and the token we choose, which is known before the call is made.
QString requestPathFor(const QDBusConnection& bus, const QString& token) {
    QString sender = bus.baseService().mid(1);
    sender.replace(u'.', u'_');
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

struct Stream {
    std::uint32_t node = 0;
    QSize size;
};

// The first stream of a(ua{sv}), with its "size" (ii).
std::optional<Stream> firstStream(const QVariant& streams) {
    if (!streams.canConvert<QDBusArgument>())
        return std::nullopt;
    const auto argument = streams.value<QDBusArgument>();
    std::optional<Stream> first;
    argument.beginArray();
    while (!argument.atEnd()) {
        Stream stream;
        QVariantMap properties;
        argument.beginStructure();
        argument >> stream.node >> properties;
        argument.endStructure();
        const QVariant size = properties.value(QStringLiteral("size"));
        if (size.canConvert<QDBusArgument>()) {
            const auto pair = size.value<QDBusArgument>();
            int width = 0;
            int height = 0;
            pair.beginStructure();
            pair >> width >> height;
            pair.endStructure();
            stream.size = {width, height};
        }
        if (!first)
            first = stream;
    }
    argument.endArray();
    return first;
}

} // namespace

PortalSession::PortalSession(QDBusConnection bus, QString token,
                             std::function<void(QString)> keepToken, QObject* parent)
    : QObject(parent), bus_(std::move(bus)), token_(std::move(token)),
      keepToken_(std::move(keepToken)) {}

void PortalSession::start() {
    if (!bus_.isConnected()) {
        finish(State::Failed);
        return;
    }
    request(Step::CreateSession, kRemoteDesktop, QStringLiteral("CreateSession"), {},
            {{QStringLiteral("session_handle_token"), QStringLiteral("mervak")}});
}

void PortalSession::request(Step step, const QString& interface, const QString& method,
                            const QVariantList& leading, QVariantMap options) {
    step_ = step;
    const QString token = QStringLiteral("mervak%1").arg(++requests_);
    options.insert(QStringLiteral("handle_token"), token);
    if (!requestPath_.isEmpty())
        bus_.disconnect(kService, requestPath_, QStringLiteral("org.freedesktop.portal.Request"),
                        QStringLiteral("Response"), this, SLOT(onResponse(uint, QVariantMap)));
    requestPath_ = requestPathFor(bus_, token);
    bus_.connect(kService, requestPath_, QStringLiteral("org.freedesktop.portal.Request"),
                 QStringLiteral("Response"), this, SLOT(onResponse(uint, QVariantMap)));
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, interface, method);
    call.setArguments(leading + QVariantList{options});
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* w) {
        w->deleteLater();
        if (w->isError())
            finish(State::Failed);
    });
}

void PortalSession::onResponse(uint response, const QVariantMap& results) {
    if (state_ != State::Starting)
        return;
    constexpr uint kCancelled = 1;
    if (response == kCancelled) {
        finish(State::Refused);
        return;
    }
    if (response != 0) {
        finish(State::Failed);
        return;
    }
    advance(results);
}

// Each answer leads to the next request: devices, then the monitor for the
// pointer, then the start, which shows the dialog unless the token restores it.
void PortalSession::advance(const QVariantMap& results) {
    const QDBusObjectPath session(sessionPath_);
    switch (step_) {
    case Step::CreateSession: {
        sessionPath_ = results.value(QStringLiteral("session_handle")).toString();
        QVariantMap options{{QStringLiteral("types"), kKeyboard | kPointer},
                            {QStringLiteral("persist_mode"), kPersistUntilRevoked}};
        if (!token_.isEmpty())
            options.insert(QStringLiteral("restore_token"), token_);
        request(Step::SelectDevices, kRemoteDesktop, QStringLiteral("SelectDevices"),
                {QVariant::fromValue(QDBusObjectPath(sessionPath_))}, options);
        break;
    }
    case Step::SelectDevices:
        request(Step::SelectSources, kScreenCast, QStringLiteral("SelectSources"),
                {QVariant::fromValue(session)},
                {{QStringLiteral("types"), kMonitor}, {QStringLiteral("multiple"), false}});
        break;
    case Step::SelectSources:
        request(Step::Start, kRemoteDesktop, QStringLiteral("Start"),
                {QVariant::fromValue(session), QString()}, {});
        break;
    case Step::Start: {
        const QString token = results.value(QStringLiteral("restore_token")).toString();
        if (!token.isEmpty() && token != token_ && keepToken_) {
            token_ = token;
            keepToken_(token);
        }
        if (const std::optional<Stream> stream =
                firstStream(results.value(QStringLiteral("streams")))) {
            stream_ = stream->node;
            streamSize_ = stream->size;
        }
        const uint devices = results.value(QStringLiteral("devices")).toUInt();
        finish((devices & kKeyboard) != 0 ? State::Started : State::Refused);
        break;
    }
    }
}

void PortalSession::finish(State state) {
    if (state_ != State::Starting)
        return;
    state_ = state;
    emit finished(state);
}

void PortalSession::notify(const QString& method, const QVariantList& arguments) {
    if (state_ != State::Started)
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kRemoteDesktop, method);
    call.setArguments(
        QVariantList{QVariant::fromValue(QDBusObjectPath(sessionPath_)), QVariantMap()} +
        arguments);
    call.setAutoStartService(false);
    bus_.call(call, QDBus::NoBlock);
}

void PortalSession::keysym(std::uint32_t symbol, bool pressed) {
    notify(QStringLiteral("NotifyKeyboardKeysym"),
           {static_cast<int>(symbol), static_cast<uint>(pressed ? 1 : 0)});
}

void PortalSession::pointerTo(double x, double y) {
    notify(QStringLiteral("NotifyPointerMotionAbsolute"), {stream_, x, y});
}

void PortalSession::button(std::uint32_t evdevButton, bool pressed) {
    notify(QStringLiteral("NotifyPointerButton"),
           {static_cast<int>(evdevButton), static_cast<uint>(pressed ? 1 : 0)});
}

} // namespace mervak
