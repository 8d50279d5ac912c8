#include "app/DesktopApplication.h"

#include <utility>

namespace quillet {

namespace {

QString service() {
    return QString::fromLatin1(desktopName);
}

// The name with slashes: where a desktop looks for a program that has this name on the bus.
QString path() {
    return QLatin1Char('/') + service().replace(QLatin1Char('.'), QLatin1Char('/'));
}

// With it Wayland lets a window come to the front that the user has not touched; the toolkit looks for it
// there.
void takeActivationToken(const QVariantMap& platformData) {
    const QByteArray token = platformData.value(QStringLiteral("activation-token")).toString().toUtf8();
    if (!token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token);
}

} // namespace

DesktopApplication::DesktopApplication(std::function<void()> onActivate, const QDBusConnection& bus)
    : m_onActivate(std::move(onActivate))
    , m_bus(bus) {
    // The object first: messages come as soon as the name is there.
    if (m_bus.registerObject(path(), this, QDBusConnection::ExportScriptableSlots))
        m_bus.registerService(service());
}

DesktopApplication::~DesktopApplication() {
    m_bus.unregisterService(service());
    m_bus.unregisterObject(path());
}

void DesktopApplication::Activate(const QVariantMap& platformData) {
    takeActivationToken(platformData);
    m_onActivate();
}

void DesktopApplication::Open(const QStringList& /*uris*/, const QVariantMap& /*platformData*/) {
    refuse();
}

void DesktopApplication::ActivateAction(const QString& /*name*/, const QVariantList& /*parameters*/,
                                        const QVariantMap& /*platformData*/) {
    refuse();
}

void DesktopApplication::refuse() {
    if (calledFromDBus())
        sendErrorReply(QDBusError::NotSupported, QStringLiteral("Quillet has no files or actions to open."));
}

} // namespace quillet
