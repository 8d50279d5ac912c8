#include "platform/screens/sharing/PortalRequest.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

#include <utility>

namespace platform {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString prefix = QStringLiteral("org.freedesktop.portal.");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

// Unique in the program.
QString nextToken() {
    static int count = 0;
    return QStringLiteral("quillet%1").arg(++count);
}

} // namespace

void PortalRequest::send(QDBusConnection bus, Call call, Answer answer) {
    auto* request = new PortalRequest(std::move(bus), std::move(answer));
    request->start(std::move(call));
}

PortalRequest::PortalRequest(QDBusConnection bus, Answer answer)
    : QObject(QCoreApplication::instance())
    , m_bus(std::move(bus))
    , m_answer(std::move(answer)) {}

// Whose name is known before the call misses no response, however soon it comes.
void PortalRequest::start(Call call) {
    if (!m_bus.isConnected()) {
        QTimer::singleShot(0, this, [this] { finish(Outcome::Unavailable); });
        return;
    }
    const QString token = nextToken();
    const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    listenAt(portalPath + QStringLiteral("/request/%1/%2").arg(sender, token));
    call.options[QStringLiteral("handle_token")] = token;
    call.arguments += call.options;
    auto message = QDBusMessage::createMethodCall(service, portalPath, prefix + call.interface, call.method);
    message.setArguments(call.arguments);
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
        if (reply.isError())
            finish(Outcome::Unavailable);
        else if (reply.value().path() != m_path) // an old portal, which names them by itself
            listenAt(reply.value().path());
    });
}

void PortalRequest::listenAt(const QString& path) {
    m_path = path;
    m_bus.connect(service, path, prefix + QStringLiteral("Request"), QStringLiteral("Response"), this,
                  SLOT(response(uint, QVariantMap)));
}

void PortalRequest::response(uint code, const QVariantMap& results) {
    finish(code == 0 ? Outcome::Done : Outcome::Ended, results);
}

void PortalRequest::finish(Outcome outcome, const QVariantMap& results) {
    deleteLater();
    if (const auto answer = std::exchange(m_answer, {})) answer(outcome, results);
}

} // namespace platform
