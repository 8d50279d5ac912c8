#include "platform/screens/appearance/DesktopSettings.h"

#include "platform/foundation/NeverDestroyed.h"

#include <QtDBus/QDBusMessage>

#include <initializer_list>

namespace platform {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString unknownSetting = QStringLiteral("org.freedesktop.portal.Error.NotFound");

constexpr int answerTimeoutMilliseconds = 300;

struct Setting {
    QString group;
    QString key;

    bool operator==(const Setting&) const = default;
};

const Setting colorScheme{QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme")};
const Setting reducedMotion{QStringLiteral("org.freedesktop.appearance"), QStringLiteral("reduced-motion")};
const Setting animations{QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations")};

// A portal may wrap what it reads once or twice.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

DesktopSettings& DesktopSettings::shared() {
    static NeverDestroyed<DesktopSettings> settings(QDBusConnection::sessionBus());
    return settings.get();
}

DesktopSettings::DesktopSettings(QDBusConnection bus)
    : m_bus(std::move(bus)) {
    if (!m_bus.isConnected()) return;
    qRegisterMetaType<QDBusVariant>(); // else the slot's types are not known before the first message
    m_bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                  SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask();
}

bool DesktopSettings::reducesMotion() const {
    return m_reducedMotion.value_or(!m_animations.value_or(true));
}

void DesktopSettings::ask() {
    for (const auto& [group, key] : {colorScheme, reducedMotion, animations}) {
        auto call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
        call.setArguments({group, key});
        const auto reply = m_bus.call(call, QDBus::Block, answerTimeoutMilliseconds);
        if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty())
            take(group, key, unwrapped(reply.arguments().constFirst()));
        else if (reply.errorName() != unknownSetting)
            return; // there is nobody, or nobody who answers in time
    }
}

void DesktopSettings::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    take(group, key, unwrapped(value.variant()));
}

void DesktopSettings::take(const QString& group, const QString& key, const QVariant& value) {
    const Setting setting{group, key};
    if (setting == colorScheme) // 1 prefers dark, 2 light, 0 says nothing
        m_appearance.set(value.toUInt() == 1 ? Appearance::Dark : Appearance::Light);
    else if (setting == reducedMotion)
        m_reducedMotion = value.toUInt() == 1;
    else if (setting == animations)
        m_animations = value.toBool();
}

} // namespace platform
