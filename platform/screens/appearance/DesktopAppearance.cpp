#include "platform/screens/appearance/DesktopAppearance.h"

#include "platform/foundation/NeverDestroyed.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

namespace platform {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString schemeKey = QStringLiteral("color-scheme");

// The start waits for this answer, so that the first window has its colours at once.
constexpr int answerTimeoutMilliseconds = 300;

// 1 prefers dark, 2 light, 0 says nothing.
Appearance appearanceOf(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt() == 1 ? Appearance::Dark : Appearance::Light;
}

} // namespace

DesktopAppearance& DesktopAppearance::shared() {
    static NeverDestroyed<DesktopAppearance> appearance;
    return appearance.get();
}

DesktopAppearance::DesktopAppearance() {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask();
}

void DesktopAppearance::ask() {
    auto call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    call.setArguments({appearanceGroup, schemeKey});
    const auto reply = QDBusConnection::sessionBus().call(call, QDBus::Block, answerTimeoutMilliseconds);
    if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty())
        m_appearance.set(appearanceOf(reply.arguments().constFirst()));
}

void DesktopAppearance::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == appearanceGroup && key == schemeKey) m_appearance.set(appearanceOf(value.variant()));
}

} // namespace platform
